// SPDX-License-Identifier: GPL-3.0-or-later
#include "menus/ShownMenus.h"

#include "helpers/Await.h"
#include "helpers/Printing.h"

#include <QTest>

namespace tonearm {

using namespace Qt::StringLiterals;
using namespace test;

namespace {

DiscInfo disc(const QString &name)
{
    DiscInfo result;
    result.volumeURL = QUrl::fromLocalFile(u"/media/"_s + name);
    result.volumeName = name;
    result.discID = u"an-id"_s;
    DiscTrack track;
    track.number = 1;
    track.frameCount = 75 * 60;
    result.tracks.append(track);
    return result;
}

struct DiscCommandsTest : ShownMenus
{
    QAction &load() { return entry(u"Load Audio CD"_s); }

    QAction &eject() { return entry(u"Eject Disc"_s); }

    // What "Load Audio CD" offers to choose from.
    QStringList choice() { return load().menu() ? entriesOf(*load().menu()) : QStringList(); }

    void expectLoaded(const QString &name)
    {
        EXPECT_EQ(model.sourceName(), name);
        EXPECT_TRUE(eventually([this] { return !model.isLoadingReleases.value(); }));
    }
};

} // namespace

TEST_F(DiscCommandsTest, CanDoNothingWithoutADisc)
{
    EXPECT_FALSE(load().isEnabled());
    EXPECT_FALSE(load().menu());
    EXPECT_FALSE(eject().isEnabled());
}

TEST_F(DiscCommandsTest, LoadTheOnlyDiscByAKey)
{
    model.detectedDiscs = QList{disc(u"The Disc"_s)};
    EXPECT_TRUE(load().isEnabled());
    EXPECT_FALSE(load().menu());
    EXPECT_EQ(keysOf(load()), u"Ctrl+D"_s);
    QTest::keyClick(&window, Qt::Key_D, Qt::ControlModifier);
    expectLoaded(u"The Disc"_s);
    EXPECT_FALSE(load().isEnabled());
}

TEST_F(DiscCommandsTest, AskBeforeADiscReplacesWork)
{
    model.inputFileURL = QUrl(u"file:///music/Concert.mkv"_s);
    model.chapters = disc(u"Another"_s).chapters();
    model.setMappedTitle(0, u"Edited"_s);
    model.detectedDiscs = QList{disc(u"The Disc"_s)};
    load().trigger();
    ASSERT_TRUE(model.pendingSourceChange.value());
    EXPECT_EQ(model.pendingSourceChange.value()->sourceName(), u"The Disc"_s);
}

TEST_F(DiscCommandsTest, LetTheUserChooseAmongSeveralDiscs)
{
    model.detectedDiscs = QList{disc(u"One & Two"_s), disc(u"The Disc"_s)};
    EXPECT_TRUE(load().isEnabled());
    EXPECT_EQ(choice(), (QStringList{u"One & Two"_s, u"The Disc"_s}));
    EXPECT_EQ(keysOf(load()), QString());
    for (const QAction *entry : load().menu()->actions())
        EXPECT_EQ(keysOf(*entry), QString());
    load().menu()->actions().last()->trigger();
    expectLoaded(u"The Disc"_s);
}

TEST_F(DiscCommandsTest, HaveNoKeyForSeveralDiscs)
{
    model.detectedDiscs = QList{disc(u"A"_s), disc(u"B"_s)};
    QTest::keyClick(&window, Qt::Key_D, Qt::ControlModifier);
    EXPECT_FALSE(model.hasSource());
}

TEST_F(DiscCommandsTest, OpenASubmenuByTheKeyboard)
{
    model.detectedDiscs = QList{disc(u"A"_s), disc(u"B"_s)};
    QTest::keyClick(&window, Qt::Key_F, Qt::AltModifier);
    QMenu &file = menu(u"File"_s);
    ASSERT_TRUE(file.isVisible());
    QTest::keyClick(&file, Qt::Key_D);
    ASSERT_TRUE(eventually([this] { return load().menu()->isVisible(); }));
    QTest::keyClick(load().menu(), Qt::Key_Down);
    QTest::keyClick(load().menu(), Qt::Key_Return);
    expectLoaded(u"B"_s);
    EXPECT_FALSE(file.isVisible());
}

TEST_F(DiscCommandsTest, FollowTheDiscsAsTheyComeAndGo)
{
    model.detectedDiscs = QList{disc(u"A"_s), disc(u"B"_s)};
    model.detectedDiscs = QList{disc(u"A"_s), disc(u"B"_s), disc(u"C"_s)};
    EXPECT_EQ(choice(), (QStringList{u"A"_s, u"B"_s, u"C"_s}));
    model.detectedDiscs = QList{disc(u"C"_s)};
    EXPECT_EQ(choice(), QStringList());
    EXPECT_TRUE(load().isEnabled());
    EXPECT_EQ(entriesOf(menu(u"File"_s)).count(u"Load Audio CD"_s), 1);
    model.detectedDiscs = QList<DiscInfo>();
    EXPECT_FALSE(load().isEnabled());
}

TEST_F(DiscCommandsTest, EjectADiscOnOffer)
{
    model.detectedDiscs = QList{disc(u"A"_s)};
    ASSERT_TRUE(eject().isEnabled());
    eject().trigger();
    EXPECT_TRUE(eventually([this] { return !surroundings.ejector().ejected.isEmpty(); }));
    EXPECT_EQ(surroundings.ejector().ejected, QList{disc(u"A"_s).volumeURL});
    EXPECT_FALSE(eject().isEnabled());
}

TEST_F(DiscCommandsTest, EjectTheLoadedDisc)
{
    model.loadDisc(disc(u"A"_s));
    ASSERT_TRUE(eject().isEnabled());
    eject().trigger();
    EXPECT_TRUE(eventually([this] { return surroundings.ejector().ejected.size() == 1; }));
    EXPECT_TRUE(eventually([this] { return !model.isLoadingReleases.value(); }));
}

} // namespace tonearm
