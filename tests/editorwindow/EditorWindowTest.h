// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/screens/editorwindow/MetadataEditorWindow.h"
#include "app/screens/elements/SingleWindow.h"
#include "helpers/Await.h"
#include "helpers/EditorFixture.h"
#include "helpers/Printing.h"
#include "helpers/ToldFFmpeg.h"
#include "helpers/WindowUser.h"
#include "tageditor/ArtworkViewer.h"

#include <gtest/gtest.h>

namespace tonearm::test {

/// The tag editor's window as the application opens it, over a model of its own.
struct EditorWindowTest : testing::Test
{
    bool isOpen() const { return windows.window() && windows.window()->isVisible(); }

    MetadataEditorWindow &widget() const { return *windows.window(); }

    /// Shows these rows as a folder's, all selected.
    void show(const QList<EditableAudioFile> &rows)
    {
        model.hasLoadedFolder = true;
        model.folderURL = QUrl::fromLocalFile(QStringLiteral("/songs"));
        surroundings.show(rows);
    }

    void select(const QStringList &names) { surroundings.select(names); }

    /// Makes a song for each name, with the name's first letter as its artist, and opens their folder.
    void openSongs(const QStringList &names)
    {
        int position = 0;
        for (const QString &name : names)
            surroundings.songs().makeSong(
                name, tagList(QStringLiteral("1"), QString::number(++position), name.first(1)));
        surroundings.open();
    }

    ToldFFmpeg tools;
    EditorFixture surroundings{tools.location()};
    MetadataEditorModel &model = surroundings.model();
    ArtworkViewer viewer;
    SingleWindow<MetadataEditorWindow> windows;
    WindowUser window{opened()};

private:
    MetadataEditorWindow &opened()
    {
        windows.open(model, surroundings.genres(), viewer);
        return widget();
    }
};

/// A row with all tags.
inline EditableAudioFile filledRow(const QString &name, const QString &year = QStringLiteral("1969"))
{
    AudioFileTags tags;
    tags.trackPosition = QStringLiteral("03");
    tags.artist = QStringLiteral("The Artist");
    tags.album = QStringLiteral("The Album");
    tags.title = QStringLiteral("The Song");
    tags.year = year;
    tags.genre = QStringLiteral("Skiffle");
    tags.discNumber = QStringLiteral("1");
    return rowOf(name, tags);
}

} // namespace tonearm::test
