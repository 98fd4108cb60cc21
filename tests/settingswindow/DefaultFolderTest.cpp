// SPDX-License-Identifier: GPL-3.0-or-later
// The row of the default folder, and its panel.
#include "settingswindow/ShownSettings.h"

#include "app/screens/elements/Colours.h"

#include <QLineEdit>

namespace tonearm {

using namespace Qt::StringLiterals;
using namespace test;

namespace {

const QString none = u"None — chosen per job"_s;

struct DefaultFolderTest : ShownSettings
{
    QLineEdit &row() { return find<QLineEdit>(u"Default Folder"_s); }

    QPushButton &chooseButton() { return find<QPushButton>(u"Choose…"_s); }

    QUrl url(const QString &name) const { return QUrl::fromLocalFile(path(name)); }

    QColor colour() { return row().palette().color(QPalette::Text); }
};

} // namespace

TEST_F(DefaultFolderTest, SaysThatThereIsNone)
{
    EXPECT_EQ(row().text(), none);
    EXPECT_EQ(colour(), toneColour(Tone::secondary, view().palette()));
    EXPECT_TRUE(shows<QPushButton>(u"Choose…"_s));
    EXPECT_FALSE(shows<QPushButton>(u"Clear"_s));
}

TEST_F(DefaultFolderTest, ShowsTheFolder)
{
    settings.setDefaultOutputDirectory(url(u"music"_s));
    EXPECT_EQ(row().text(), path(u"music"_s));
    EXPECT_EQ(colour(), toneColour(Tone::text, view().palette()));
    EXPECT_TRUE(shows<QPushButton>(u"Clear"_s));
    settings.setDefaultOutputDirectory(std::nullopt);
    EXPECT_EQ(row().text(), none);
    EXPECT_EQ(colour(), toneColour(Tone::secondary, view().palette()));
}

TEST_F(DefaultFolderTest, IsCleared)
{
    settings.setDefaultOutputDirectory(url(u"music"_s));
    click(find<QPushButton>(u"Clear"_s));
    EXPECT_EQ(settings.defaultOutputDirectory(), std::nullopt);
    EXPECT_EQ(row().text(), none);
    EXPECT_FALSE(shows<QPushButton>(u"Clear"_s));
}

TEST_F(DefaultFolderTest, IsNoWiderForALongPath)
{
    settings.setDefaultOutputDirectory(url(u"long"_s.repeated(100)));
    EXPECT_EQ(view().width(), 540);
    EXPECT_EQ(row().text(), path(u"long"_s.repeated(100)));
    EXPECT_TRUE(find<QPushButton>(u"Clear"_s).geometry().right() < view().width());
}

TEST_F(DefaultFolderTest, IsChosenInAPanel)
{
    panels.prepareAnswer(url(u"music"_s));
    click(chooseButton());
    EXPECT_TRUE(eventually([this] { return settings.defaultOutputDirectory() == url(u"music"_s); }));
    OpenPanelRequest expected;
    expected.title = u"Choose Default Output Folder"_s;
    expected.prompt = u"Choose"_s;
    expected.target = OpenPanelRequest::Target::folder;
    expected.offersNewFolders = true;
    EXPECT_EQ(panels.requests(), QList<OpenPanelRequest>{expected});
}

TEST_F(DefaultFolderTest, OpensThePanelWhereTheFolderIs)
{
    settings.setDefaultOutputDirectory(url(u"music"_s));
    panels.prepareAnswer(std::nullopt);
    click(chooseButton());
    ASSERT_EQ(panels.requests().size(), 1);
    EXPECT_EQ(panels.requests().first().startFolder, url(u"music"_s));
}

TEST_F(DefaultFolderTest, StaysWhereThePanelIsDismissed)
{
    settings.setDefaultOutputDirectory(url(u"music"_s));
    click(chooseButton());
    ASSERT_EQ(panels.openCount(), 1);
    panels.answer(std::nullopt);
    ASSERT_TRUE(eventually([this] { return panels.openCount() == 0; }));
    EXPECT_EQ(settings.defaultOutputDirectory(), url(u"music"_s));
}

TEST_F(DefaultFolderTest, HasOnePanelAtATime)
{
    click(chooseButton());
    click(chooseButton());
    EXPECT_EQ(panels.openCount(), 1);
    panels.answer(url(u"one"_s));
    ASSERT_TRUE(eventually([this] { return settings.defaultOutputDirectory() == url(u"one"_s); }));
    click(chooseButton());
    EXPECT_EQ(panels.openCount(), 1) << "and another afterwards";
    panels.answer(std::nullopt);
}

TEST_F(DefaultFolderTest, TakesNothingFromAPanelThatOutlivesTheWindow)
{
    click(chooseButton());
    ASSERT_EQ(panels.openCount(), 1);
    close();
    EXPECT_TRUE(eventually([this] { return panels.openCount() == 0; })) << "it is dismissed";
    EXPECT_EQ(settings.defaultOutputDirectory(), std::nullopt);
}

TEST_F(DefaultFolderTest, TakesNoAnswerThatComesTogetherWithTheEndOfTheWindow)
{
    click(chooseButton());
    ASSERT_EQ(panels.openCount(), 1);
    panels.answer(url(u"late"_s));
    close();
    EXPECT_TRUE(eventually([this] { return panels.openCount() == 0; }));
    EXPECT_EQ(settings.defaultOutputDirectory(), std::nullopt);
}

} // namespace tonearm
