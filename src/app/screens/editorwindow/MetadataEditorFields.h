// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

class QVBoxLayout;

namespace tonearm {

class ArtworkViewer;
class GenreCatalog;
class MetadataEditorModel;

/// The tags and the artwork of the selected files.
class MetadataEditorFields : public QWidget
{
    Q_OBJECT

public:
    MetadataEditorFields(MetadataEditorModel &model, const GenreCatalog &genres, ArtworkViewer &viewer,
                         QWidget *parent = nullptr);

Q_SIGNALS:
    /// The viewer holds artwork that the user wants to see in its window.
    void artworkViewingRequested();

private:
    QVBoxLayout *makeTags(const GenreCatalog &genres);

    MetadataEditorModel &m_model;
};

} // namespace tonearm
