// SPDX-License-Identifier: GPL-3.0-or-later
#include "cddafs/DiscNames.h"

#include "helpers/Printing.h"

#include <gtest/gtest.h>

namespace tonearm {

using namespace Qt::StringLiterals;

TEST(DiscNames, NameATrackByNumberAndTitle)
{
    EXPECT_EQ(trackFileName(7, u"Some Title"_s), u"7 Some Title.aiff"_s);
    EXPECT_EQ(trackFileName(12, u"1999"_s), u"12 1999.aiff"_s);
}

TEST(DiscNames, NameATrackWithoutATitle)
{
    EXPECT_EQ(trackFileName(1, {}), u"1 Audio Track.aiff"_s);
    EXPECT_EQ(trackFileName(1, u" \t\n"_s), u"1 Audio Track.aiff"_s);
    EXPECT_EQ(trackFileName(1, u"\u0001"_s), u"1 Audio Track.aiff"_s);
}

TEST(DiscNames, ReplaceWhatAFileNameCannotHold)
{
    EXPECT_EQ(trackFileName(1, u"AC/DC/"_s), u"1 AC-DC-.aiff"_s);
    EXPECT_EQ(trackFileName(1, u"a\tb\nc\u007Fd\u0085e\u2028f"_s), u"1 a b c d e f.aiff"_s);
    EXPECT_EQ(trackFileName(1, u"a\0b"_s), u"1 a b.aiff"_s);
}

TEST(DiscNames, FitIntoTwoHundredFiftyFiveBytes)
{
    const QString name = trackFileName(99, QString(120, u'日'));
    EXPECT_EQ(name, u"99 "_s + QString(82, u'日') + u".aiff"_s);
    EXPECT_LE(name.toUtf8().size(), 255);
    EXPECT_EQ(trackFileName(1, QString(300, u'a')).toUtf8().size(), 255);
    EXPECT_EQ(volumeName(QString(120, u'日')), QString(85, u'日'));
}

TEST(DiscNames, NameTheVolumeByTheDiscsTitle)
{
    EXPECT_EQ(volumeName(u"Back/Forth\n"_s), u"Back-Forth"_s);
    EXPECT_EQ(volumeName({}), u"Audio CD"_s);
    EXPECT_EQ(volumeName(u" "_s), u"Audio CD"_s);
}

TEST(DiscNames, HideNoVolume)
{
    EXPECT_EQ(volumeName(u".hidden"_s), u"_hidden"_s);
    EXPECT_EQ(volumeName(u"."_s), u"_"_s);
    EXPECT_EQ(volumeName(u".."_s), u"_."_s);
}

} // namespace tonearm
