// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/editortable/EditorFooter.h"
#include "app/screens/elements/Spinner.h"
#include "editortable/ShownTable.h"
#include "helpers/Printing.h"
#include "helpers/Widgets.h"

#include <gtest/gtest.h>

#include <QLabel>
#include <QLayout>

namespace tonearm {

using namespace Qt::StringLiterals;
using namespace test;

namespace {

struct EditorFooterTest : testing::Test
{
    EditorFooter &footer() { return *shown.table().findChild<EditorFooter *>(); }

    ShownTable shown;
};

} // namespace

TEST_F(EditorFooterTest, TakesNoRoomWithNothingToSay)
{
    EXPECT_TRUE(footer().isHidden());
}

TEST_F(EditorFooterTest, SumsUpTheSelection)
{
    shown.fixture().show({rowOf(u"a"_s), rowOf(u"b"_s)});
    EXPECT_TRUE(shown.shows(u"2 files · 2 selected"_s));
    shown.clickRow(0);
    EXPECT_TRUE(shown.shows(u"2 files · 1 selected"_s));
    shown.model().reset();
    EXPECT_TRUE(footer().isHidden());
}

TEST_F(EditorFooterTest, CountsTheFilesThatWereSkipped)
{
    shown.model().skippedAudioCount = 1;
    EXPECT_TRUE(shown.shows(u"1 other audio file was skipped."_s));
    shown.model().skippedAudioCount = 12;
    EXPECT_TRUE(shown.shows(u"12 other audio files were skipped."_s));
    shown.model().skippedAudioCount = 0;
    EXPECT_TRUE(footer().isHidden());
}

TEST_F(EditorFooterTest, TurnsASpinnerWhileArtworkIsRead)
{
    shown.model().isReadingArtwork = true;
    EXPECT_TRUE(shown.shows(u"Reading artwork…"_s));
    EXPECT_TRUE(footer().findChild<Spinner *>()->isVisible());
    shown.model().isReadingArtwork = false;
    EXPECT_FALSE(shown.shows(u"Reading artwork…"_s));
    EXPECT_TRUE(footer().isHidden());
}

TEST_F(EditorFooterTest, KeepsItsPiecesApartAndWrapsThem)
{
    shown.fixture().show({rowOf(u"a"_s)});
    shown.model().skippedAudioCount = 1;
    auto *summary = named<QLabel>(shown.table(), u"1 file · 1 selected"_s);
    auto *skipped = named<QLabel>(shown.table(), u"1 other audio file was skipped."_s);
    ASSERT_TRUE(summary && skipped);
    QCoreApplication::sendPostedEvents();
    EXPECT_EQ(skipped->geometry().left() - summary->geometry().right() - 1, 12);
    const int oneLine = footer().heightForWidth(footer().sizeHint().width());
    EXPECT_GE(footer().heightForWidth(footer().sizeHint().width() - 1), 2 * oneLine);
}

} // namespace tonearm
