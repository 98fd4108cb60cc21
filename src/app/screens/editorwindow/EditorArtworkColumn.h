// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

class QMenu;

namespace tonearm {

class ArtworkViewer;
class MetadataEditorModel;

/// The artwork of the selected files: its well, what is told of it, and whether it is to be shrunk.
class EditorArtworkColumn : public QWidget
{
    Q_OBJECT

public:
    EditorArtworkColumn(MetadataEditorModel &model, ArtworkViewer &viewer, QWidget *parent = nullptr);

Q_SIGNALS:
    /// The viewer holds artwork that the user wants to see in its window.
    void viewingRequested();

private:
    QWidget *makeWell();
    QWidget *makeCaption();
    QWidget *makeToggle();
    void fillMenu(QMenu &menu);
    void view();

    MetadataEditorModel &m_model;
    ArtworkViewer &m_viewer;
};

} // namespace tonearm
