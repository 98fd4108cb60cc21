// SPDX-License-Identifier: GPL-3.0-or-later
// Section 2: what the tags say of the album.
#include "e2e/ShownWindow.h"

#include "helpers/Printing.h"

#include <QLabel>
#include <QToolButton>

namespace tonearm {

using namespace Qt::StringLiterals;
using namespace test;

namespace {

const QString yearWarning = u"Year needs four digits, e.g. 1969 — it won't be tagged as it stands."_s;

using MetadataTest = WindowTest;

} // namespace

TEST_F(MetadataTest, HasABoxForEachField)
{
    EXPECT_TRUE(window.shows<QLabel>(u"Album Metadata"_s));
    for (const QString &name : {u"Artist"_s, u"Album Title"_s, u"Year"_s, u"Disc"_s, u"Genre"_s}) {
        SCOPED_TRACE(name.toStdString());
        EXPECT_TRUE(window.shows<QLabel>(name));
        EXPECT_EQ(window.box(name).text(), QString());
    }
    EXPECT_TRUE(window.shows<QLabel>(u"of"_s));
    EXPECT_EQ(window.box(u"Number of discs"_s).text(), QString());
}

TEST_F(MetadataTest, WritesWhatIsTypedToTheModel)
{
    window.fillIn(u"Artist"_s, u"The Artist"_s);
    window.fillIn(u"Album Title"_s, u"The Album"_s);
    window.fillIn(u"Year"_s, u"1999"_s);
    window.fillIn(u"Disc"_s, u"1"_s);
    window.fillIn(u"Number of discs"_s, u"2"_s);
    window.fillIn(u"Genre"_s, u"Post-Rock"_s);
    EXPECT_EQ(model.artist.value(), u"The Artist"_s);
    EXPECT_EQ(model.albumTitle.value(), u"The Album"_s);
    EXPECT_EQ(model.albumYear.value(), u"1999"_s);
    EXPECT_EQ(model.discNumber.value(), u"1"_s);
    EXPECT_EQ(model.discTotal.value(), u"2"_s);
    EXPECT_EQ(model.genre.value(), u"Post-Rock"_s);
}

TEST_F(MetadataTest, ShowsWhatTheModelHolds)
{
    model.artist = u"The Artist"_s;
    model.albumYear = u"1969"_s;
    model.discTotal = u"3"_s;
    EXPECT_EQ(window.box(u"Artist"_s).text(), u"The Artist"_s);
    EXPECT_EQ(window.box(u"Year"_s).text(), u"1969"_s);
    EXPECT_EQ(window.box(u"Number of discs"_s).text(), u"3"_s);
}

TEST_F(MetadataTest, LeavesTheCursorWhereTheUserTypes)
{
    window.fillIn(u"Artist"_s, u"Te Beatles"_s);
    window.box(u"Artist"_s).setCursorPosition(1);
    type(u"h"_s);
    EXPECT_EQ(model.artist.value(), u"The Beatles"_s);
    EXPECT_EQ(window.box(u"Artist"_s).cursorPosition(), 2);
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(model.artist.value(), u"Te Beatles"_s);
}

TEST_F(MetadataTest, HasNarrowBoxesForNumbers)
{
    EXPECT_EQ(window.box(u"Year"_s).width(), 64);
    EXPECT_EQ(window.box(u"Disc"_s).width(), 40);
    EXPECT_EQ(window.box(u"Number of discs"_s).width(), 40);
    EXPECT_EQ(window.box(u"Genre"_s).width(), 220);
    EXPECT_EQ(window.find<QToolButton>(u"Choose from the default genres"_s).width(), 32);
}

TEST_F(MetadataTest, ExplainsItsBoxes)
{
    const QString aboutDiscs = u"Which disc of a set this is, written to the DISCNUMBER and DISCTOTAL tags. "
                               u"Leave both empty for a single-disc release."_s;
    EXPECT_EQ(window.box(u"Year"_s).toolTip(), u"Four-digit year written to the DATE tag"_s);
    EXPECT_EQ(window.box(u"Disc"_s).toolTip(), aboutDiscs);
    EXPECT_EQ(window.box(u"Number of discs"_s).toolTip(), aboutDiscs);
    EXPECT_EQ(window.box(u"Genre"_s).toolTip(),
              u"Written to the GENRE tag on every track, which is what media servers group and browse by. "
              u"Type anything, or pick from the list."_s);
    EXPECT_EQ(window.find<QToolButton>(u"Choose from the default genres"_s).toolTip(),
              u"Choose from the default genres"_s);
}

TEST_F(MetadataTest, WarnsOfAYearWithoutFourDigits)
{
    EXPECT_FALSE(window.shows(yearWarning));
    window.fillIn(u"Year"_s, u"69"_s);
    EXPECT_TRUE(window.shows(yearWarning));
    window.fillIn(u"Year"_s, u"1969"_s);
    EXPECT_FALSE(window.shows(yearWarning));
    window.fillIn(u"Year"_s, u"  "_s);
    EXPECT_FALSE(window.shows(yearWarning));
}

TEST_F(MetadataTest, LeadsFromALabelToItsBox)
{
    for (const QString &name : {u"Artist"_s, u"Album Title"_s, u"Year"_s, u"Disc"_s, u"Genre"_s}) {
        SCOPED_TRACE(name.toStdString());
        QWidget *buddy = window.find<QLabel>(name).buddy();
        ASSERT_TRUE(buddy);
        buddy->setFocus();
        EXPECT_EQ(QApplication::focusWidget(), &window.box(name));
    }
}

} // namespace tonearm
