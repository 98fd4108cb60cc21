// SPDX-License-Identifier: GPL-3.0-or-later
#include "encoding/FFmpegArguments.h"

#include "helpers/Printing.h"

#include <gtest/gtest.h>

#include <QLocale>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

TrackEncoding fullTrack()
{
    return {
        .chapter = {.id = 1,
                    .startSeconds = 61.5,
                    .endSeconds = 180.25,
                    .originalTitle = u"Two"_s,
                    .mappedTitle = u"Don't = Stop"_s},
        .source = QUrl::fromLocalFile(u"/music/a: 5% off/My #1 movie?.mkv"_s),
        .output = QUrl::fromLocalFile(u"/out/50% %41/02-Dont-Stop.flac"_s),
        .metadata = {.artist = u" The Artist\n"_s,
                     .album = u"The Album"_s,
                     .year = u"c. 1999-03"_s,
                     .genre = u"Rock"_s,
                     .discNumber = u"02"_s,
                     .discTotal = u"Disc 1 of 2"_s,
                     .coverArtURL = QUrl::fromLocalFile(u"/art/cover 1.jpg"_s)},
        .number = 2,
        .total = 11,
        .wholeFile = false,
    };
}

// A list of arguments, written with "|" between them.
QStringList listed(const QString &arguments)
{
    return arguments.split(u'|');
}

// The metadata pairs in an argument list, without "-metadata".
QStringList pairsIn(const QStringList &arguments)
{
    QStringList result;
    for (qsizetype index = 0; index + 1 < arguments.size(); ++index) {
        if (arguments[index] == u"-metadata"_s)
            result << arguments[index + 1];
    }
    return result;
}

QStringList pairsFor(const AudioMetadata &metadata)
{
    TrackEncoding track = fullTrack();
    track.metadata = metadata;
    return pairsIn(ffmpegArguments(track));
}

} // namespace

TEST(FFmpegArguments, CutAChapterAndEmbedTheCover)
{
    EXPECT_EQ(ffmpegArguments(fullTrack()), listed(u"-hide_banner|-v|error|-progress|pipe:2|-nostats"
                                                   "|-accurate_seek|-ss|61.500000"
                                                   "|-i|/music/a: 5% off/My #1 movie?.mkv"
                                                   "|-i|/art/cover 1.jpg"
                                                   "|-t|118.750000"
                                                   "|-map|0:a:0"
                                                   "|-map|1:v:0"
                                                   "|-c:a|flac"
                                                   "|-c:v|copy|-disposition:v:0|attached_pic"
                                                   "|-metadata:s:v|title=Album cover"
                                                   "|-metadata:s:v|comment=Cover (front)"
                                                   "|-metadata|track=2"
                                                   "|-metadata|TRACKTOTAL=11"
                                                   "|-metadata|disc=2"
                                                   "|-metadata|DISCTOTAL=12"
                                                   "|-metadata|title=Don't = Stop"
                                                   "|-metadata|artist=The Artist"
                                                   "|-metadata|album_artist=The Artist"
                                                   "|-metadata|album=The Album"
                                                   "|-metadata|date=1999"
                                                   "|-metadata|genre=Rock"
                                                   "|-y|/out/50% %41/02-Dont-Stop.flac"_s));
}

TEST(FFmpegArguments, CutAChapterWithoutACover)
{
    TrackEncoding track = fullTrack();
    track.metadata = {};
    EXPECT_EQ(ffmpegArguments(track), listed(u"-hide_banner|-v|error|-progress|pipe:2|-nostats"
                                             "|-accurate_seek|-ss|61.500000"
                                             "|-i|/music/a: 5% off/My #1 movie?.mkv"
                                             "|-t|118.750000"
                                             "|-map|0:a:0"
                                             "|-vn"
                                             "|-c:a|flac"
                                             "|-metadata|track=2"
                                             "|-metadata|TRACKTOTAL=11"
                                             "|-metadata|title=Don't = Stop"
                                             "|-y|/out/50% %41/02-Dont-Stop.flac"_s));
}

TEST(FFmpegArguments, TakeAWholeFileWithoutTimes)
{
    TrackEncoding track = fullTrack();
    track.wholeFile = true;
    track.metadata = {.artist = u"A"_s};
    EXPECT_EQ(ffmpegArguments(track), listed(u"-hide_banner|-v|error|-progress|pipe:2|-nostats"
                                             "|-i|/music/a: 5% off/My #1 movie?.mkv"
                                             "|-map|0:a:0"
                                             "|-vn"
                                             "|-c:a|flac"
                                             "|-metadata|track=2"
                                             "|-metadata|TRACKTOTAL=11"
                                             "|-metadata|title=Don't = Stop"
                                             "|-metadata|artist=A"
                                             "|-metadata|album_artist=A"
                                             "|-y|/out/50% %41/02-Dont-Stop.flac"_s));
}

TEST(FFmpegArguments, TakeAWholeFileWithACover)
{
    TrackEncoding track = fullTrack();
    track.wholeFile = true;
    track.metadata = {.coverArtURL = QUrl::fromLocalFile(u"/art/cover.png"_s)};
    EXPECT_EQ(ffmpegArguments(track), listed(u"-hide_banner|-v|error|-progress|pipe:2|-nostats"
                                             "|-i|/music/a: 5% off/My #1 movie?.mkv"
                                             "|-i|/art/cover.png"
                                             "|-map|0:a:0"
                                             "|-map|1:v:0"
                                             "|-c:a|flac"
                                             "|-c:v|copy|-disposition:v:0|attached_pic"
                                             "|-metadata:s:v|title=Album cover"
                                             "|-metadata:s:v|comment=Cover (front)"
                                             "|-metadata|track=2"
                                             "|-metadata|TRACKTOTAL=11"
                                             "|-metadata|title=Don't = Stop"
                                             "|-y|/out/50% %41/02-Dont-Stop.flac"_s));
}

TEST(FFmpegArguments, GiveABackwardChapterNoLength)
{
    TrackEncoding track = fullTrack();
    track.chapter.endSeconds = 10;
    const QStringList arguments = ffmpegArguments(track);
    EXPECT_EQ(arguments.value(arguments.indexOf(u"-t"_s) + 1), u"0.000000"_s);
    EXPECT_EQ(track.duration(), 0);
}

TEST(FFmpegArguments, WriteTimesWithSixPlacesAndAPoint)
{
    const QLocale before;
    QLocale::setDefault(QLocale(QLocale::German));
    TrackEncoding track = fullTrack();
    track.chapter.startSeconds = 3600.0000005;
    track.chapter.endSeconds = 12345678.1234567;
    const QStringList arguments = ffmpegArguments(track);
    QLocale::setDefault(before);
    EXPECT_EQ(arguments.value(arguments.indexOf(u"-ss"_s) + 1), u"3600.000001"_s);
    EXPECT_EQ(arguments.value(arguments.indexOf(u"-t"_s) + 1), u"12342078.123456"_s);
}

TEST(FFmpegArguments, LeaveOutPairsWithoutAValue)
{
    const QStringList always = {u"track=2"_s, u"TRACKTOTAL=11"_s, u"title=Don't = Stop"_s};
    EXPECT_EQ(pairsFor({}), always);
    EXPECT_EQ(pairsFor({.genre = u"  \n"_s}), always);
    EXPECT_EQ(pairsFor({.discTotal = u"0"_s}), always);
    EXPECT_EQ(pairsFor({.discNumber = u"first"_s}), always);
    EXPECT_EQ(pairsFor({.year = u"99"_s}), always);
}

TEST(FFmpegArguments, LeaveOutAnEmptyTitle)
{
    TrackEncoding track = fullTrack();
    track.metadata = {};
    track.chapter.mappedTitle = u" \t"_s;
    EXPECT_EQ(pairsIn(ffmpegArguments(track)), (QStringList{u"track=2"_s, u"TRACKTOTAL=11"_s}));
}

TEST(FFmpegArguments, HoldNoNullThatWouldCutATag)
{
    TrackEncoding track = fullTrack();
    track.metadata = {.artist = QString(QChar::Null)};
    track.chapter.mappedTitle = QString(u"a"_s + QChar::Null + u"b "_s + QChar::Null);
    EXPECT_EQ(pairsIn(ffmpegArguments(track)),
              (QStringList{u"track=2"_s, u"TRACKTOTAL=11"_s, u"title=ab"_s}));
}

TEST(FFmpegArguments, ReduceYearAndDiscNumbers)
{
    const auto has = [](const AudioMetadata &metadata, const QString &pair) {
        return pairsFor(metadata).contains(pair);
    };
    EXPECT_TRUE(has({.year = u"19990312"_s}, u"date=1999"_s));
    EXPECT_TRUE(has({.year = u"c. 1999-03"_s}, u"date=1999"_s));
    EXPECT_TRUE(has({.discNumber = u"02"_s}, u"disc=2"_s));
    EXPECT_TRUE(has({.discTotal = u"1/12"_s}, u"DISCTOTAL=112"_s));
}

} // namespace tonearm
