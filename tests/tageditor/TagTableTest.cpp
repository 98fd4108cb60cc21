// SPDX-License-Identifier: GPL-3.0-or-later
#include "tageditor/TagTable.h"

#include "helpers/Printing.h"

#include <gtest/gtest.h>

#include <QJsonDocument>
#include <QJsonObject>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

AudioFileTags tagsOf(const QJsonObject &tags)
{
    const QJsonObject format{{u"tags"_s, tags}};
    return audioFileTags(ProbePayload::decoded(QJsonDocument(QJsonObject{{u"format"_s, format}}).toJson()));
}

AudioFileTags tagsOfStreams(const QByteArray &streams)
{
    return audioFileTags(ProbePayload::decoded("{\"streams\": [" + streams + "]}"));
}

struct PositionCase
{
    QString value;
    QString position;
    QString total;
};

} // namespace

TEST(TagTable, FoldsKeysToLowerCase)
{
    const ProbePayload payload = ProbePayload::decoded(
        R"({"format": {"tags": {"TITLE": "a", "MusicBrainz Track Id": "b", "ÄÖ": "c"}}})");
    EXPECT_EQ(tagTable(payload),
              (TagTable{{u"title"_s, u"a"_s}, {u"musicbrainz track id"_s, u"b"_s}, {u"äö"_s, u"c"_s}}));
}

TEST(TagTable, TakesTheLastOfKeysThatDifferInCaseAlone)
{
    const ProbePayload payload = ProbePayload::decoded(
        R"({"format": {"tags": {"title": "small", "TITLE": "large", "Title": "mixed"}}})");
    EXPECT_EQ(tagTable(payload), (TagTable{{u"title"_s, u"small"_s}}));
}

TEST(TagTable, IsEmptyWithoutTags)
{
    EXPECT_TRUE(tagTable(ProbePayload::decoded("{}")).isEmpty());
    EXPECT_TRUE(tagTable(ProbePayload::decoded(R"({"format": {}})")).isEmpty());
    EXPECT_EQ(audioFileTags(ProbePayload::decoded("{}")), AudioFileTags());
}

TEST(AudioFileTags, ReadsKeysInEitherCaseAlike)
{
    const AudioFileTags upper = tagsOf({{u"TITLE"_s, u"Song"_s}, {u"ARTIST"_s, u"Anna"_s}});
    EXPECT_EQ(upper, tagsOf({{u"title"_s, u"Song"_s}, {u"artist"_s, u"Anna"_s}}));
    EXPECT_EQ(upper.title, u"Song"_s);
    EXPECT_EQ(upper.artist, u"Anna"_s);
}

TEST(AudioFileTags, ReadsEveryField)
{
    AudioFileTags expected;
    expected.trackPosition = u"3"_s;
    expected.artist = u"Anna"_s;
    expected.album = u"Songs"_s;
    expected.title = u"Song"_s;
    expected.year = u"1999"_s;
    expected.genre = u"Folk"_s;
    expected.discNumber = u"1"_s;
    expected.trackTotal = u"12"_s;
    expected.discTotal = u"2"_s;
    EXPECT_EQ(tagsOf({{u"track"_s, u"3/12"_s},
                      {u"artist"_s, u" Anna\n"_s},
                      {u"album"_s, u"\tSongs "_s},
                      {u"title"_s, u"\r\nSong"_s},
                      {u"date"_s, u" 1999-03-04 "_s},
                      {u"genre"_s, u"Folk\u00A0"_s},
                      {u"disc"_s, u"01/02"_s},
                      {u"album_artist"_s, u"ignored"_s}}),
              expected);
}

TEST(AudioFileTags, TakesTheOtherKeyIfTheFirstIsAbsent)
{
    EXPECT_EQ(tagsOf({{u"TRACKNUMBER"_s, u"7"_s}}).trackPosition, u"7"_s);
    EXPECT_EQ(tagsOf({{u"DISCNUMBER"_s, u"2/3"_s}}).discTotal, u"3"_s);
    EXPECT_EQ(tagsOf({{u"YEAR"_s, u"1987"_s}}).year, u"1987"_s);
}

TEST(AudioFileTags, TakesTheOtherKeyIfTheFirstHoldsBlanksOnly)
{
    EXPECT_EQ(tagsOf({{u"track"_s, u"   "_s}, {u"tracknumber"_s, u"7"_s}}).trackPosition, u"7"_s);
    EXPECT_EQ(tagsOf({{u"disc"_s, u"\t"_s}, {u"discnumber"_s, u"2"_s}}).discNumber, u"2"_s);
    EXPECT_EQ(tagsOf({{u"date"_s, u""_s}, {u"year"_s, u"1987"_s}}).year, u"1987"_s);
}

TEST(AudioFileTags, KeepsToTheFirstKeyOnceItHasAValue)
{
    EXPECT_EQ(tagsOf({{u"date"_s, u"May"_s}, {u"year"_s, u"1987"_s}}).year, u""_s);
    EXPECT_EQ(tagsOf({{u"track"_s, u"none"_s}, {u"tracknumber"_s, u"7"_s}}).trackPosition, u""_s);
    EXPECT_EQ(tagsOf({{u"track"_s, u"\n"_s}, {u"tracknumber"_s, u"7"_s}}).trackPosition, u""_s);
}

TEST(AudioFileTags, TakesTheYearOutOfADate)
{
    EXPECT_EQ(tagsOf({{u"date"_s, u"2003-05-17"_s}}).year, u"2003"_s);
    EXPECT_EQ(tagsOf({{u"date"_s, u"٢٠٠٣"_s}}).year, u"٢٠٠٣"_s);
    EXPECT_EQ(tagsOf({{u"date"_s, u"99"_s}}).year, u""_s);
}

TEST(AudioFileTags, DoesntReadTotalsOfTheirOwn)
{
    EXPECT_EQ(tagsOf({{u"TRACKNUMBER"_s, u"3"_s},
                      {u"TRACKTOTAL"_s, u"12"_s},
                      {u"TOTALTRACKS"_s, u"12"_s},
                      {u"DISCTOTAL"_s, u"2"_s}})
                  .trackTotal,
              u""_s);
}

TEST(AudioFileTags, SplitsAPositionAtItsFirstSlash)
{
    const QList<PositionCase> cases = {
        {u"03/12"_s, u"3"_s, u"12"_s},   {u" 3 / 12 "_s, u"3"_s, u"12"_s},
        {u"/12"_s, u"12"_s, u""_s},      {u"//5/12"_s, u"5"_s, u"12"_s},
        {u"3/"_s, u"3"_s, u""_s},        {u"3"_s, u"3"_s, u""_s},
        {u"/"_s, u""_s, u""_s},          {u""_s, u""_s, u""_s},
        {u"3/12/5"_s, u"3"_s, u"125"_s}, {u"3//12"_s, u"3"_s, u"12"_s},
        {u"a/12"_s, u""_s, u"12"_s},     {u"1;2;3"_s, u"123"_s, u""_s},
        {u"0/0"_s, u""_s, u""_s},        {u"A3/B12"_s, u"3"_s, u"12"_s},
        {u"٣/١٢"_s, u""_s, u""_s},       {u"99999999999999999999/2"_s, u""_s, u"2"_s},
    };
    for (const PositionCase &test : cases) {
        const AudioFileTags tags = tagsOf({{u"track"_s, test.value}});
        EXPECT_EQ(tags.trackPosition, test.position) << test.value.toStdString();
        EXPECT_EQ(tags.trackTotal, test.total) << test.value.toStdString();
    }
}

TEST(AudioFileTags, KeepsSeveralValuesInOneAsTheyAre)
{
    EXPECT_EQ(tagsOf({{u"artist"_s, u"Anna;Bea;Cleo"_s}}).artist, u"Anna;Bea;Cleo"_s);
    EXPECT_EQ(tagsOf({{u"genre"_s, u"(17)Rock / Pop"_s}}).genre, u"(17)Rock / Pop"_s);
}

TEST(AudioFileTags, TakesTheFirstAttachedPictureForTheCover)
{
    const AudioFileTags tags =
        tagsOfStreams(R"({"codec_type": "video", "width": 1, "height": 2, "disposition": {"attached_pic": 0}},
                         {"disposition": {"attached_pic": 1}, "width": 600, "height": 500},
                         {"disposition": {"attached_pic": 1}, "width": 7, "height": 8})");
    EXPECT_TRUE(tags.hasAttachedPicture);
    EXPECT_EQ(tags.artworkPixelWidth, 600);
    EXPECT_EQ(tags.artworkPixelHeight, 500);
}

TEST(AudioFileTags, HasACoverOfUnknownSize)
{
    const AudioFileTags tags = tagsOfStreams(R"({"disposition": {"attached_pic": 1}})");
    EXPECT_TRUE(tags.hasAttachedPicture);
    EXPECT_FALSE(tags.artworkPixelWidth);
    EXPECT_FALSE(tags.artworkPixelHeight);
}

TEST(AudioFileTags, DoesntTakeAVideoForACover)
{
    const AudioFileTags tags = tagsOfStreams(
        R"({"codec_type": "video", "width": 64, "height": 48, "disposition": {"attached_pic": 0}},
           {"width": 64, "height": 48, "disposition": {}}, {"width": 64, "height": 48})");
    EXPECT_EQ(tags, AudioFileTags());
}

} // namespace tonearm
