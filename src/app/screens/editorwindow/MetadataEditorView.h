// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

namespace tonearm {

class ArtworkViewer;
class GenreCatalog;
class MetadataEditorModel;

/// The tag editor: the folder, its files, what is to become of the selected ones, and the save.
class MetadataEditorView : public QWidget
{
    Q_OBJECT

public:
    MetadataEditorView(MetadataEditorModel &model, const GenreCatalog &genres, ArtworkViewer &viewer,
                       QWidget *parent = nullptr);

Q_SIGNALS:
    /// The viewer holds artwork that the user wants to see in its window.
    void artworkViewingRequested();

    /// The user wants to leave.
    void cancelled();
};

} // namespace tonearm
