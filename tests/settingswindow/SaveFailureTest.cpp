// SPDX-License-Identifier: GPL-3.0-or-later
// What the window says of a change that couldn't be stored.
#include "settingswindow/ShownSettings.h"

#include "app/screens/elements/IconLabel.h"

#include <QDir>

namespace tonearm {

using namespace Qt::StringLiterals;
using namespace test;

namespace {

struct SaveFailureTest : ShownSettings
{
    IconLabel &note() { return *view().findChild<IconLabel *>(); }
};

} // namespace

TEST_F(SaveFailureTest, IsNotThereWhereAllWentWell)
{
    settings.setUseSecureCDRipping(true);
    EXPECT_FALSE(note().isVisible());
}

// A folder in the file's place: not even root can write there.
TEST_F(SaveFailureTest, IsToldUntilAChangeIsStored)
{
    const int height = view().height();
    ASSERT_TRUE(QDir().mkpath(settingsFile() + u"/in the way"_s));
    settings.setUseSecureCDRipping(true);
    ASSERT_TRUE(settings.saveFailure());
    EXPECT_TRUE(note().isVisible());
    EXPECT_EQ(note().text(), settings.saveFailure()->joined(u" "_s));
    EXPECT_EQ(accessibleNameOf(note()), note().text());
    EXPECT_TRUE(eventually([&] { return view().height() > height; }));
    ASSERT_TRUE(QDir(settingsFile()).removeRecursively());
    settings.setUseSecureCDRipping(false);
    EXPECT_FALSE(note().isVisible());
    EXPECT_TRUE(eventually([&] { return view().height() == height; }));
}

} // namespace tonearm
