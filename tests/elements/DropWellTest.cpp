// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/elements/DropWell.h"

#include "helpers/Printing.h"
#include "helpers/Rendering.h"
#include "helpers/Widgets.h"

#include <gtest/gtest.h>

#include <QHBoxLayout>
#include <QLabel>

namespace tonearm {

using namespace Qt::StringLiterals;
using namespace test;

namespace {

struct Well : testing::Test
{
    Well() { well.setLabel(u"Drag an .mkv file here"_s); }

    bool accepting = true;
    QList<QUrl> dropped;
    DropWell well = DropWell(u"Input file drop area"_s, [this](const QUrl &url) {
        dropped.append(url);
        return accepting;
    });
    QUrl first = QUrl::fromLocalFile(u"/music/first.mkv"_s);
    QUrl second = QUrl::fromLocalFile(u"/music/second.mkv"_s);
};

using DropWellTest = Well;

} // namespace

TEST_F(DropWellTest, ConsidersOnlyTheFirstFile)
{
    EXPECT_TRUE(drop(well, {first, second}));
    EXPECT_EQ(dropped, QList<QUrl>({first}));
}

TEST_F(DropWellTest, LeavesTheAnswerToItsOwner)
{
    accepting = false;
    EXPECT_FALSE(drop(well, {first}));
    EXPECT_EQ(dropped, QList<QUrl>({first}));
}

TEST_F(DropWellTest, RefusesADropWithoutFiles)
{
    EXPECT_FALSE(drop(well, {}));
    EXPECT_FALSE(drop(well, {QUrl(u"https://example.org/first.mkv"_s), first}));
    EXPECT_TRUE(dropped.isEmpty());
}

TEST_F(DropWellTest, IsTargetedWhileAFileHoversOverIt)
{
    EXPECT_TRUE(dragOver(well, {first}));
    EXPECT_TRUE(well.isTargeted());
    const QImage targeted = rendered(well);
    dragAway(well, {first});
    EXPECT_FALSE(well.isTargeted());
    EXPECT_NE(rendered(well), targeted);
    EXPECT_TRUE(drop(well, {first}));
    EXPECT_FALSE(well.isTargeted());
}

TEST_F(DropWellTest, TakesNothingWhileDisabled)
{
    well.setEnabled(false);
    EXPECT_FALSE(drop(well, {first}));
    EXPECT_TRUE(dropped.isEmpty());
}

TEST_F(DropWellTest, HasANameApartFromItsLabel)
{
    EXPECT_EQ(accessibleNameOf(well), u"Input file drop area"_s);
    EXPECT_EQ(well.label(), u"Drag an .mkv file here"_s);
    EXPECT_TRUE(named<QLabel>(well, u"Drag an .mkv file here"_s));
}

TEST_F(DropWellTest, SharesItsRoomEvenlyWhateverItsLabel)
{
    QWidget window;
    auto *row = new QHBoxLayout(&window);
    auto *other = new DropWell(u"Other"_s, [](const QUrl &) { return false; });
    other->setLabel(QString(60, u'x'));
    row->addWidget(&well);
    row->addWidget(other);
    window.resize(800, 100);
    window.show();
    EXPECT_NEAR(other->width(), well.width(), 1);
    well.setParent(nullptr);
}

TEST_F(DropWellTest, HasItsHeightWhateverItsLabel)
{
    well.setLabel(QString(400, u'x'));
    EXPECT_EQ(well.height(), 100);
    EXPECT_LT(well.minimumSizeHint().width(), 200);
    const DropWell other(
        u"Other"_s, [](const QUrl &) { return false; }, nullptr, 60);
    EXPECT_EQ(other.height(), 60);
}

} // namespace tonearm
