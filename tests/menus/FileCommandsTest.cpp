// SPDX-License-Identifier: GPL-3.0-or-later
#include "menus/ShownMenus.h"

#include "helpers/Await.h"
#include "helpers/Contents.h"
#include "helpers/Printing.h"
#include "helpers/ScriptedTools.h"

#include <QDir>
#include <QFile>
#include <QSignalSpy>

namespace tonearm {

using namespace Qt::StringLiterals;
using namespace test;

namespace {

struct FileCommandsTest : ShownMenus
{
    void haveLog()
    {
        writeFile(surroundings.path(u"job.log"_s), "log");
        model.lastLogURL = surroundings.url(u"job.log"_s);
        surroundings.settle();
    }

    void expectPanel()
    {
        EXPECT_TRUE(eventually([this] { return surroundings.panels().openCount() == 1; }));
    }
};

} // namespace

TEST_F(FileCommandsTest, AreTheseInThisOrder)
{
    EXPECT_EQ(entriesOf(menu(u"File"_s)),
              (QStringList{u"Select Input File…"_s, u"Select Output Folder…"_s, u"-"_s, u"Load Audio CD"_s,
                           u"Eject Disc"_s, u"-"_s, u"Encode to FLAC"_s, u"Cancel Encoding"_s,
                           u"Show Output in Finder"_s, u"Show Encoding Log"_s, u"-"_s, u"Close Window"_s,
                           u"Quit"_s}));
}

TEST_F(FileCommandsTest, HaveTheseKeys)
{
    for (const auto &[text, keys] : {std::pair(u"Select Input File…"_s, u"Ctrl+I"_s),
                                     {u"Select Output Folder…"_s, u"Ctrl+O"_s},
                                     {u"Load Audio CD"_s, u"Ctrl+D"_s},
                                     {u"Eject Disc"_s, QString()},
                                     {u"Encode to FLAC"_s, u"Ctrl+E"_s},
                                     {u"Cancel Encoding"_s, u"Ctrl+."_s},
                                     {u"Show Output in Finder"_s, QString()},
                                     {u"Show Encoding Log"_s, QString()},
                                     {u"Close Window"_s, u"Ctrl+W"_s},
                                     {u"Quit"_s, u"Ctrl+Q"_s}})
        EXPECT_EQ(keysOf(entry(text)), keys) << text.toStdString();
}

TEST_F(FileCommandsTest, CanChooseAndCloseAtAnyTime)
{
    for (const QString &text :
         {u"Select Input File…"_s, u"Select Output Folder…"_s, u"Close Window"_s, u"Quit"_s})
        EXPECT_TRUE(entry(text).isEnabled()) << text.toStdString();
}

TEST_F(FileCommandsTest, ChooseTheInputFile)
{
    entry(u"Select Input File…"_s).trigger();
    expectPanel();
    EXPECT_EQ(surroundings.panels().requests().first().target, OpenPanelRequest::Target::file);
}

TEST_F(FileCommandsTest, ChooseTheOutputFolder)
{
    entry(u"Select Output Folder…"_s).trigger();
    expectPanel();
    EXPECT_EQ(surroundings.panels().requests().first().target, OpenPanelRequest::Target::folder);
}

TEST_F(FileCommandsTest, ShowTheOutputOnceThereIsAFolderForIt)
{
    EXPECT_FALSE(entry(u"Show Output in Finder"_s).isEnabled());
    ASSERT_TRUE(QDir().mkpath(surroundings.path(u"out"_s)));
    model.outputFolderURL = surroundings.url(u"out"_s);
    ASSERT_TRUE(entry(u"Show Output in Finder"_s).isEnabled());
    entry(u"Show Output in Finder"_s).trigger();
    surroundings.settle();
    EXPECT_EQ(surroundings.fileViewer().selections(), (QList<QList<QUrl>>{{surroundings.url(u"out"_s)}}));
    model.outputFolderURL = std::nullopt;
    EXPECT_FALSE(entry(u"Show Output in Finder"_s).isEnabled());
}

TEST_F(FileCommandsTest, ShowTheLog)
{
    EXPECT_FALSE(entry(u"Show Encoding Log"_s).isEnabled());
    haveLog();
    ASSERT_TRUE(entry(u"Show Encoding Log"_s).isEnabled());
    entry(u"Show Encoding Log"_s).trigger();
    surroundings.settle();
    EXPECT_EQ(surroundings.fileViewer().selections(), (QList<QList<QUrl>>{{surroundings.url(u"job.log"_s)}}));
}

TEST_F(FileCommandsTest, DontShowALogThatHasSinceBeenDeleted)
{
    haveLog();
    ASSERT_TRUE(QFile::remove(surroundings.path(u"job.log"_s)));
    EXPECT_TRUE(eventually([this] { return !entry(u"Show Encoding Log"_s).isEnabled(); }));
}

TEST_F(FileCommandsTest, LookForTheLogWhenTheMenuOpens)
{
    ASSERT_TRUE(QDir().mkpath(surroundings.path(u"above/albums"_s)));
    writeFile(surroundings.path(u"above/albums/job.log"_s), "log");
    model.lastLogURL = surroundings.url(u"above/albums/job.log"_s);
    surroundings.settle();
    // A change so far up isn't told.
    ASSERT_TRUE(QFile::rename(surroundings.path(u"above"_s), surroundings.path(u"moved"_s)));
    surroundings.settle();
    ASSERT_TRUE(entry(u"Show Encoding Log"_s).isEnabled());
    openMenu(u"File"_s);
    EXPECT_TRUE(eventually([this] { return !entry(u"Show Encoding Log"_s).isEnabled(); }));
}

TEST_F(FileCommandsTest, AskForTheWindowToBeClosed)
{
    const QSignalSpy requested(bar, &MenuBar::closeRequested);
    entry(u"Close Window"_s).trigger();
    EXPECT_EQ(requested.size(), 1);
}

TEST_F(FileCommandsTest, AskForTheProgramToEnd)
{
    const QSignalSpy requested(bar, &MenuBar::quitRequested);
    entry(u"Quit"_s).trigger();
    EXPECT_EQ(requested.size(), 1);
}

TEST(FileCommandsOfAJob, FollowTheModel)
{
    ScriptedTools tools;
    tools.setEncoding(ScriptedTools::waiting("go") + "echo sound > \"$output\"");
    ModelFixture surroundings({.tools = tools.location()});
    QWidget window;
    const MenuBar bar(surroundings.model(), &window);
    QList<QAction *> entries = bar.actions().first()->menu()->actions();
    const auto find = [&](const QString &text) {
        return *std::find_if(entries.begin(), entries.end(),
                             [&](const QAction *action) { return unmarked(action->text()) == text; });
    };
    QAction *encode = find(u"Encode to FLAC"_s);
    QAction *cancel = find(u"Cancel Encoding"_s);
    EXPECT_FALSE(encode->isEnabled());
    EXPECT_FALSE(cancel->isEnabled());
    surroundings.prepareJob(tools.source());
    EXPECT_TRUE(encode->isEnabled());
    surroundings->setMappedTitle(0, u" "_s);
    EXPECT_FALSE(encode->isEnabled());
    surroundings->setMappedTitle(0, u"One"_s);
    encode->trigger();
    surroundings.waitForJobStart();
    EXPECT_FALSE(encode->isEnabled());
    ASSERT_TRUE(cancel->isEnabled());
    cancel->trigger();
    surroundings.waitForJobEnd();
    EXPECT_EQ(surroundings->statusText(), u"Encoding cancelled."_s);
    EXPECT_TRUE(encode->isEnabled());
    EXPECT_FALSE(cancel->isEnabled());
}

} // namespace tonearm
