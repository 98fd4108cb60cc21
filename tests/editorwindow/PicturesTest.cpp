// SPDX-License-Identifier: GPL-3.0-or-later
// Pictures of the window in its states for people to look at.
#include "editorwindow/EditorWindowTest.h"

#include "helpers/Rendering.h"

namespace tonearm {

using namespace Qt::StringLiterals;
using namespace test;
using Field = EditableTagField;

namespace {

struct EditorPictures : testing::WithParamInterface<bool>, EditorWindowTest
{
    static void keep(QWidget &widget, const QString &name)
    {
        const QString suffix = GetParam() ? u"-dark"_s : u"-light"_s;
        EXPECT_NE(renderToPng(widget, name + suffix, widget.devicePixelRatioF()), QString());
    }

    void keepWindow(const QString &state, const QSize &size = {1000, 780})
    {
        widget().resize(size);
        WindowUser::settle();
        keep(widget(),
             u"editor-%1-%2x%3"_s.arg(state, QString::number(size.width()), QString::number(size.height())));
    }

    void showAlbum()
    {
        QList<EditableAudioFile> rows;
        const QStringList titles = {u"Overture"_s,
                                    u"A Song With a Name That Is Too Long for Its Column by Far"_s,
                                    u"第五章 長い題名の歌"_s, u"Finale"_s};
        for (const QString &title : titles) {
            AudioFileTags tags;
            tags.trackPosition = QString::number(rows.size() + 1);
            tags.artist = u"Sinfonieorchester des Bayerischen Rundfunks"_s;
            tags.album = u"The Complete Symphonies, Recorded Live in the Great Hall"_s;
            tags.title = title;
            tags.year = rows.isEmpty() ? u"1969"_s : u"1970"_s;
            tags.genre = u"Classical"_s;
            tags.discNumber = u"1"_s;
            rows.append(rowOf(u"%1 - %2.flac"_s.arg(QString::number(rows.size() + 1), title), tags));
        }
        show(rows);
        model.folderURL = QUrl::fromLocalFile(u"/home/somebody/Music/Orchestra/The Complete Symphonies"_s);
    }

    void edit()
    {
        showAlbum();
        model.setValue(u"1971"_s, Field::year);
        model.setValue(u"The Orchestra"_s, Field::artist);
    }

    void chooseCover()
    {
        QImage image(600, 400, QImage::Format_RGB32);
        image.fill(QColor(180, 90, 40));
        ASSERT_TRUE(image.save(surroundings.path(u"cover.png"_s)));
        ASSERT_TRUE(model.acceptImage(surroundings.url(u"cover.png"_s)));
        ASSERT_TRUE(eventually([this] { return model.chosenArtwork.value().has_value(); }));
    }

    PaletteScope palette{GetParam() ? darkPalette() : lightPalette()};
};

} // namespace

TEST_P(EditorPictures, WithoutAFolder)
{
    keepWindow(u"empty"_s);
    keepWindow(u"empty"_s, {900, 640});
}

TEST_P(EditorPictures, WithEdits)
{
    edit();
    ASSERT_NO_FATAL_FAILURE(chooseCover());
    keepWindow(u"edited"_s);
    keepWindow(u"edited"_s, {900, 640});
    keepWindow(u"edited"_s, {1920, 1080});
}

TEST_P(EditorPictures, WhileAFolderIsRead)
{
    showAlbum();
    select({});
    model.isLoading = true;
    model.loadProgress = 0.4;
    keepWindow(u"loading"_s);
}

TEST_P(EditorPictures, DuringASave)
{
    edit();
    ASSERT_NO_FATAL_FAILURE(chooseCover());
    model.isSaving = true;
    model.saveProgress = 0.5;
    model.saveStatus = u"Saving 3 of 4: 3 - 第五章 長い題名の歌.flac"_s;
    keepWindow(u"saving"_s);
}

TEST_P(EditorPictures, WithAProblem)
{
    edit();
    model.ffmpegProblem = u"Tonearm's ffmpeg couldn't be found. Install the application again."_s;
    keepWindow(u"problem"_s);
    keepWindow(u"problem"_s, {900, 640});
}

TEST_P(EditorPictures, AfterASaveWithFailures)
{
    showAlbum();
    RefusedSave report;
    report.tags = {u"one"_s, u"two"_s};
    model.droppedTagReports = QList<RefusedSave>{report};
    model.saveFailures = QList<SaveFailure>{SaveFailure()};
    model.completionMessage =
        u"Saved 2 files · 1 held back · dropped unwritable tags from 1 · 1 couldn't be written."_s;
    keepWindow(u"failures"_s);
}

TEST_P(EditorPictures, AfterASave)
{
    showAlbum();
    model.completionMessage = u"Saved 4 files."_s;
    window.button(u"Cancel"_s).setFocus(Qt::TabFocusReason);
    keepWindow(u"saved"_s);
}

TEST_P(EditorPictures, OfAQuestion)
{
    edit();
    RefusedSave refused;
    refused.fileName = u"3 - 第五章 長い題名の歌.m4a"_s;
    for (int number = 0; number < 30; ++number)
        refused.tags.append(u"MusicBrainz Id %1"_s.arg(number, 2, 10, QChar(u'0')));
    model.refusedSaves = QList<RefusedSave>{refused};
    keep(window.dialog(), u"editor-question-refused"_s);
    window.answer(u"Leave Unchanged"_s);
    window.waitUntilUndisturbed();
    model.isConfirmingCancel = true;
    keep(window.dialog(), u"editor-question-discard"_s);
}

INSTANTIATE_TEST_SUITE_P(LightAndDark, EditorPictures, testing::Bool(),
                         [](const auto &dark) { return dark.param ? "Dark" : "Light"; });

} // namespace tonearm
