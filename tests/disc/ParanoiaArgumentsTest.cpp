// SPDX-License-Identifier: GPL-3.0-or-later
#include "disc/ParanoiaArguments.h"

#include "helpers/Printing.h"

#include <gtest/gtest.h>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

// The span of a track in front of a data session.
QString span(qint64 number, qint64 frames)
{
    const DiscTrack track{.number = number, .frameCount = frames, .precedesDataSession = true};
    const QStringList arguments = paranoiaArguments(track, u"/dev/sr0"_s, u"/out.wav"_s);
    EXPECT_EQ(arguments.value(4), u"-Y"_s);
    EXPECT_EQ(arguments.size(), 7);
    return arguments.value(5);
}

} // namespace

TEST(ParanoiaArguments, NameAPlainTrackByItsNumber)
{
    const DiscTrack track{.number = 7, .frameCount = 16200};
    EXPECT_EQ(paranoiaArguments(track, u"/dev/sr0"_s, u"/tmp/a b.wav"_s),
              (QStringList{u"-d"_s, u"/dev/sr0"_s, u"-w"_s, u"--never-skip=8"_s, u"7"_s, u"/tmp/a b.wav"_s}));
}

TEST(ParanoiaArguments, NameATrackInFrontOfADataSessionByItsLength)
{
    const DiscTrack track{.number = 5, .frameCount = 16200, .precedesDataSession = true};
    EXPECT_EQ(paranoiaArguments(track, u"/dev/sr0"_s, u"/out.wav"_s),
              (QStringList{u"-d"_s, u"/dev/sr0"_s, u"-w"_s, u"--never-skip=8"_s, u"-Y"_s,
                           u"5[0]-5[3:36.00]"_s, u"/out.wav"_s}));
}

TEST(ParanoiaArguments, TellALengthInMinutesSecondsAndFrames)
{
    EXPECT_EQ(span(1, 4576), u"1[0]-1[1:01.01]"_s);
    EXPECT_EQ(span(1, 74), u"1[0]-1[0:00.74]"_s);
    EXPECT_EQ(span(1, 4499), u"1[0]-1[0:59.74]"_s);
    EXPECT_EQ(span(12, 4500), u"12[0]-12[1:00.00]"_s);
    EXPECT_EQ(span(99, 450074), u"99[0]-99[100:00.74]"_s);
}

TEST(ParanoiaArguments, TakeANegativeLengthForNone)
{
    EXPECT_EQ(span(1, -1), u"1[0]-1[0:00.00]"_s);
}

} // namespace tonearm
