// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

namespace tonearm {

class ArtworkViewer;
class GenreCatalog;
class MetadataEditorModel;

/// The tag editor's window. Before it closes it asks, if edits would be lost; then its model is reset. All
/// that it is given has to outlive it.
class MetadataEditorWindow : public QWidget
{
    Q_OBJECT

public:
    MetadataEditorWindow(MetadataEditorModel &model, const GenreCatalog &genres, ArtworkViewer &viewer);

Q_SIGNALS:
    /// The viewer holds artwork that the user wants to see in its window.
    void artworkViewingRequested();

protected:
    void showEvent(QShowEvent *event) override;
    void closeEvent(QCloseEvent *event) override;

private:
    MetadataEditorModel &m_model;
};

} // namespace tonearm
