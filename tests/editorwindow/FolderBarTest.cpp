// SPDX-License-Identifier: GPL-3.0-or-later
// Which folder is open, and how far it has been read.
#include "editorwindow/EditorWindowTest.h"

#include "app/screens/elements/Colours.h"

#include <QLabel>
#include <QProgressBar>

namespace tonearm {

using namespace Qt::StringLiterals;
using namespace test;

namespace {

struct FolderBarTest : EditorWindowTest
{
    QLineEdit &path() { return window.box(u"Folder"_s); }
};

} // namespace

TEST_F(FolderBarTest, SaysThatNoFolderIsChosen)
{
    EXPECT_EQ(path().text(), u"No folder chosen"_s);
    EXPECT_FALSE(window.shows(u"Stop"_s));
    EXPECT_FALSE(window.shows(u"Reading progress"_s));
}

TEST_F(FolderBarTest, ShowsThePathAsItIs)
{
    model.folderURL = QUrl::fromLocalFile(u"/music/50% & <b>more</b>/"_s);
    EXPECT_EQ(path().text(), u"/music/50% & <b>more</b>"_s);
    EXPECT_EQ(path().palette().color(QPalette::Text), toneColour(Tone::text, widget().palette()));
    model.folderURL = std::nullopt;
    EXPECT_EQ(path().text(), u"No folder chosen"_s);
    EXPECT_EQ(path().palette().color(QPalette::Text), toneColour(Tone::secondary, widget().palette()));
}

TEST_F(FolderBarTest, LetsThePathBeMarkedButNotEdited)
{
    model.folderURL = QUrl::fromLocalFile(u"/music"_s);
    click(path());
    press(Qt::Key_A, Qt::ControlModifier);
    type(u"x"_s);
    EXPECT_EQ(path().selectedText(), u"/music"_s);
}

TEST_F(FolderBarTest, IsNotWidenedByALongPath)
{
    const int width = widget().width();
    model.folderURL = QUrl::fromLocalFile(u'/' + QString(2000, u'x'));
    model.isLoading = true;
    WindowUser::settle();
    EXPECT_EQ(widget().width(), width);
    EXPECT_EQ(window.clipped(), QStringList());
}

TEST_F(FolderBarTest, OpensTheChosenFolder)
{
    surroundings.songs().makeSong(u"a.flac"_s);
    click(window.button(u"Choose Folder…"_s));
    ASSERT_TRUE(eventually([this] { return surroundings.panels().openCount() == 1; }));
    surroundings.panels().answer(surroundings.songs().url());
    ASSERT_TRUE(eventually([this] { return surroundings.names() == QStringList{u"a.flac"_s}; }));
    ASSERT_TRUE(eventually([this] { return !model.isLoading.value(); }));
    EXPECT_EQ(path().text(), surroundings.songs().path());
}

TEST_F(FolderBarTest, ShowsHowFarAFolderIsRead)
{
    model.isLoading = true;
    model.loadProgress = 0.25;
    const auto &bar = window.find<QProgressBar>(u"Reading progress"_s);
    EXPECT_EQ(bar.width(), 120);
    EXPECT_EQ(bar.value() * 4, bar.maximum());
    EXPECT_EQ(bar.minimum(), 0);
    EXPECT_FALSE(bar.isTextVisible());
    model.isLoading = false;
    EXPECT_FALSE(window.shows(u"Reading progress"_s));
}

TEST_F(FolderBarTest, StopsTheReading)
{
    surroundings.songs().makeSong(u"a.flac"_s);
    model.openFolder(surroundings.songs().url());
    click(window.button(u"Stop"_s));
    ASSERT_TRUE(eventually([this] { return !model.isLoading.value(); }));
    EXPECT_FALSE(window.shows(u"Stop"_s));
    EXPECT_TRUE(model.selection.value().isEmpty());
}

TEST_F(FolderBarTest, OffersNoOtherFolderDuringASave)
{
    EXPECT_TRUE(window.button(u"Choose Folder…"_s).isEnabled());
    model.isSaving = true;
    EXPECT_FALSE(window.button(u"Choose Folder…"_s).isEnabled());
    model.isSaving = false;
    EXPECT_TRUE(window.button(u"Choose Folder…"_s).isEnabled());
}

TEST_F(FolderBarTest, HasTheToolsProblemBelowIt)
{
    model.ffmpegProblem = u"ffmpeg isn't there. Install it."_s;
    WindowUser::settle();
    const auto &label = window.find<QLabel>(u"ffmpeg isn't there. Install it."_s);
    EXPECT_GT(label.mapTo(&widget(), QPoint()).y(), path().mapTo(&widget(), QPoint()).y());
    EXPECT_EQ(label.palette().color(QPalette::WindowText), toneColour(Tone::warning, widget().palette()));
    model.ffmpegProblem = std::nullopt;
    EXPECT_FALSE(window.shows(u"ffmpeg isn't there. Install it."_s));
}

} // namespace tonearm
