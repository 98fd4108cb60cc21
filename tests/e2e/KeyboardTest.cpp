// SPDX-License-Identifier: GPL-3.0-or-later
// The window without a mouse.
#include "e2e/ShownWindow.h"

#include "helpers/Await.h"
#include "helpers/Contents.h"
#include "helpers/Printing.h"

#include <QApplication>
#include <QDir>

namespace tonearm {

using namespace Qt::StringLiterals;
using namespace test;

namespace {

struct KeyboardTest : ScriptedWindowTest
{
    void waitForPanel()
    {
        ASSERT_TRUE(eventually([this] { return surroundings.panels().openCount() == 1; }));
    }

    QUrl source = QUrl::fromLocalFile(tools.source());
    QUrl folder = surroundings.url(u"albums"_s);
};

QStringList reversedAfterFirst(QStringList names)
{
    std::reverse(names.begin() + 1, names.end());
    return names;
}

} // namespace

TEST_F(KeyboardTest, StartsAtTheFirstControl)
{
    EXPECT_EQ(ShownWindow::focusedName(), u"Select Input File…"_s);
}

TEST_F(KeyboardTest, GoesThroughAnEmptyWindowFromTopToBottomAndBack)
{
    const QStringList all = {u"Select Input File…"_s,
                             u"Select Output Folder…"_s,
                             u"Artist"_s,
                             u"Album Title"_s,
                             u"Year"_s,
                             u"Disc"_s,
                             u"Number of discs"_s,
                             u"Genre"_s,
                             u"Choose from the default genres"_s,
                             u"Cover art drop area"_s,
                             u"Use Chapter Titles"_s};
    EXPECT_EQ(ShownWindow::stops(Qt::Key_Tab), all);
    EXPECT_EQ(ShownWindow::stops(Qt::Key_Backtab), reversedAfterFirst(all));
}

TEST_F(KeyboardTest, GoesThroughAFilledWindowFromTopToBottomAndBack)
{
    surroundings.prepareJob(tools.source());
    model.artist = u"The Artist"_s;
    surroundings.runJob();
    const QStringList all = {u"Select Input File…"_s,
                             u"Select Output Folder…"_s,
                             u"Input File:"_s,
                             u"Output Folder:"_s,
                             u"Saving To:"_s,
                             u"Artist"_s,
                             u"Album Title"_s,
                             u"Year"_s,
                             u"Disc"_s,
                             u"Number of discs"_s,
                             u"Genre"_s,
                             u"Choose from the default genres"_s,
                             u"Search"_s,
                             u"Cover art drop area"_s,
                             u"Use Chapter Titles"_s,
                             u"Song title for chapter 1"_s,
                             u"Song title for chapter 2"_s,
                             u"Encode to FLAC"_s,
                             u"Show in Finder"_s,
                             u"Clear"_s};
    EXPECT_EQ(ShownWindow::stops(Qt::Key_Tab), all);
    EXPECT_EQ(ShownWindow::stops(Qt::Key_Backtab), reversedAfterFirst(all));
}

TEST_F(KeyboardTest, BringsTheBannersButtonFirst)
{
    ASSERT_TRUE(QFile::rename(tools.path(u"bin/ffmpeg"_s), tools.path(u"ffmpeg"_s)));
    model.checkFFmpeg();
    window.waitFor(u"Check Again"_s);
    ASSERT_EQ(ShownWindow::focusedName(), u"Select Input File…"_s);
    press(Qt::Key_Backtab);
    EXPECT_EQ(ShownWindow::focusedName(), u"Check Again"_s);
}

TEST_F(KeyboardTest, IsEnoughForAWholeJob)
{
    ASSERT_TRUE(QDir().mkpath(folder.toLocalFile()));
    surroundings.findTools();
    press(Qt::Key_Space);
    ASSERT_NO_FATAL_FAILURE(waitForPanel());
    surroundings.panels().answer(source);
    window.waitFor(u"Song title for chapter 2"_s);
    ShownWindow::tabTo(u"Select Output Folder…"_s);
    press(Qt::Key_Space);
    ASSERT_NO_FATAL_FAILURE(waitForPanel());
    surroundings.panels().answer(folder);
    ASSERT_TRUE(eventually([this] { return model.outputFolderURL.value().has_value(); }));
    for (const auto &[name, text] : {std::pair(u"Artist"_s, u"The Artist"_s),
                                     {u"Album Title"_s, u"The Album"_s},
                                     {u"Year"_s, u"1969"_s},
                                     {u"Song title for chapter 1"_s, u"Eins"_s},
                                     {u"Song title for chapter 2"_s, u"Zwei"_s}}) {
        ShownWindow::tabTo(name);
        type(text);
    }
    ShownWindow::tabTo(u"Encode to FLAC"_s);
    press(Qt::Key_Space);
    window.waitFor(u"Encoded 2 tracks to The Album"_s);
    EXPECT_EQ(namesIn(folder.toLocalFile() + u"/The Artist/The Album"_s).filter(u".flac"_s),
              (QStringList{u"01-Eins.flac"_s, u"02-Zwei.flac"_s}));
    ShownWindow::tabTo(u"Clear"_s);
    press(Qt::Key_Space);
    EXPECT_EQ(window.box(u"Artist"_s).text(), QString());
}

TEST_F(KeyboardTest, HasShortcutsForTheStepsOfAJob)
{
    ASSERT_TRUE(QDir().mkpath(folder.toLocalFile()));
    surroundings.findTools();
    holdEncoding();
    // They work from within a text box too.
    ShownWindow::tabTo(u"Artist"_s);
    press(Qt::Key_I, Qt::ControlModifier);
    ASSERT_NO_FATAL_FAILURE(waitForPanel());
    surroundings.panels().answer(source);
    window.waitFor(u"Song title for chapter 2"_s);
    press(Qt::Key_O, Qt::ControlModifier);
    ASSERT_NO_FATAL_FAILURE(waitForPanel());
    surroundings.panels().answer(folder);
    ASSERT_TRUE(eventually([this] { return model.canEncode(); }));
    press(Qt::Key_E, Qt::ControlModifier);
    surroundings.waitForJobStart();
    press(Qt::Key_Period, Qt::ControlModifier);
    surroundings.waitForJobEnd();
    EXPECT_EQ(model.statusText(), u"Encoding cancelled."_s);
    EXPECT_EQ(ShownWindow::focusedName(), u"Artist"_s);
    EXPECT_EQ(window.box(u"Artist"_s).text(), QString());
}

TEST_F(KeyboardTest, HasNoShortcutToWhatCantBeDone)
{
    press(Qt::Key_E, Qt::ControlModifier);
    press(Qt::Key_Period, Qt::ControlModifier);
    surroundings.settle();
    EXPECT_FALSE(model.encodingTask.value());
    EXPECT_TRUE(window.dialogs().isEmpty());
}

TEST_F(KeyboardTest, StaysWithTheJob)
{
    holdEncoding();
    surroundings.prepareJob(tools.source());
    ShownWindow::tabTo(u"Encode to FLAC"_s);
    press(Qt::Key_Space);
    surroundings.waitForJobStart();
    EXPECT_EQ(ShownWindow::focusedName(), u"Cancel"_s);
    press(Qt::Key_Space);
    surroundings.waitForJobEnd();
    EXPECT_EQ(ShownWindow::focusedName(), u"Encode to FLAC"_s);
}

TEST_F(KeyboardTest, ScrollsToWhatHasTheFocus)
{
    // Whatever the size of the window, every stop lies within what is to be seen of it.
    surroundings.prepareJob(tools.source());
    window.window().centralWidget()->setMinimumSize(0, 0);
    ShownWindow::settle();
    window.resizeContent({700, 300});
    ASSERT_EQ(window.contentSize(), QSize(700, 300));
    for (int step = 0; step < 16; ++step) {
        press(Qt::Key_Tab);
        ShownWindow::settle();
        const QWidget *focused = QApplication::focusWidget();
        EXPECT_EQ(focused->visibleRegion().boundingRect(), focused->rect())
            << ShownWindow::focusedName().toStdString();
    }
}

} // namespace tonearm
