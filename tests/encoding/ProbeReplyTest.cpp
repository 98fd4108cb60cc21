// SPDX-License-Identifier: GPL-3.0-or-later
#include "encoding/ProbeReply.h"

#include "helpers/Await.h"
#include "helpers/Printing.h"
#include "support/Json.h"

#include <gtest/gtest.h>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

ChapterInfo chapter(qint64 id, double start, double end, const QString &title)
{
    return {.id = id, .startSeconds = start, .endSeconds = end, .originalTitle = title, .mappedTitle = title};
}

QList<ChapterInfo> chaptersOf(const QByteArray &chapters)
{
    return readProbeReply("{\"chapters\": [" + chapters + "]}").chapters;
}

std::optional<AudioStreamInfo> streamOf(const QByteArray &stream)
{
    return readProbeReply("{\"streams\": [" + stream + "]}").audioStream;
}

bool isRefused(const QByteArray &reply)
{
    return test::errorOf<JsonError>([&] { return readProbeReply(reply); }).has_value();
}

} // namespace

TEST(ProbeReply, GivesChaptersAsTheyAreReported)
{
    const auto chapters = chaptersOf(R"({"id": 99, "start_time": "0.000000", "end_time": "61.500000",
                                         "tags": {"title": " First \n", "language": "eng"}},
                                        {"start_time": "61.5", "end_time": "61.5", "tags": {"title": "Empty"}},
                                        {"start_time": "70", "end_time": "10", "tags": {"title": "Backwards"}},
                                        {"start_time": "-1e1", "end_time": "+5.", "tags": {"title": "Early"}})");
    EXPECT_EQ(chapters,
              (QList<ChapterInfo>{chapter(0, 0, 61.5, u"First"_s), chapter(1, 61.5, 61.5, u"Empty"_s),
                                  chapter(2, 70, 10, u"Backwards"_s), chapter(3, -10, 5, u"Early"_s)}));
}

TEST(ProbeReply, NumbersUntitledChapters)
{
    const QByteArray times = R"("start_time": "0", "end_time": "1")";
    const auto chapters = chaptersOf("{" + times + "}, {" + times + R"(, "tags": {}}, {)" + times +
                                     R"(, "tags": {"title": ""}}, {)" + times + R"(, "tags": null}, {)" +
                                     times + R"(, "tags": {"title": "   "}})");
    ASSERT_EQ(chapters.size(), 5);
    EXPECT_EQ(chapters[0].originalTitle, u"Chapter 1"_s);
    EXPECT_EQ(chapters[1].originalTitle, u"Chapter 2"_s);
    EXPECT_EQ(chapters[2].originalTitle, u"Chapter 3"_s);
    EXPECT_EQ(chapters[3].originalTitle, u"Chapter 4"_s);
    EXPECT_EQ(chapters[4].originalTitle, u"Chapter 5"_s);
    EXPECT_EQ(chapters[4].mappedTitle, u"Chapter 5"_s);
}

TEST(ProbeReply, KeepsTheNumbersOfChaptersThatItLeavesOut)
{
    const QByteArray whole = R"({"start_time": "0", "end_time": "1"})";
    const auto chapters = chaptersOf(whole + R"(, {"start_time": "0"}, )" + whole + ", " + whole);
    EXPECT_EQ(chapters,
              (QList<ChapterInfo>{chapter(0, 0, 1, u"Chapter 1"_s), chapter(2, 0, 1, u"Chapter 3"_s),
                                  chapter(3, 0, 1, u"Chapter 4"_s)}));
}

TEST(ProbeReply, LeavesOutAChapterWithoutReadableTimes)
{
    for (const char *time :
         {"", " 1", "1 ", "N/A", "1:00", "1,5", "0x10", "inf", "nan", "--1", "+-1", "1e", "."}) {
        EXPECT_EQ(chaptersOf(QByteArray(R"({"start_time": ")") + time + R"(", "end_time": "1"})").size(), 0)
            << time;
        EXPECT_EQ(chaptersOf(QByteArray(R"({"start_time": "0", "end_time": ")") + time + R"("})").size(), 0)
            << time;
    }
    EXPECT_EQ(chaptersOf(R"({"end_time": "1"})").size(), 0);
    EXPECT_EQ(chaptersOf(R"({"start_time": null, "end_time": "1"})").size(), 0);
    EXPECT_EQ(chaptersOf("{}").size(), 0);
}

TEST(ProbeReply, TakesTheFirstStream)
{
    const auto stream =
        streamOf(R"json({"codec_name": "pcm_s24le", "profile": "Some Profile", "sample_rate": "96000",
                                     "channels": 6, "channel_layout": "5.1(side)", "bits_per_sample": 32,
                                     "bits_per_raw_sample": "24", "bit_rate": "+13824000", "extra": [1]},
                                    {"codec_name": "second"})json");
    EXPECT_EQ(stream, (AudioStreamInfo{.codecName = u"pcm_s24le"_s,
                                       .profile = u"Some Profile"_s,
                                       .sampleRateHertz = 96000,
                                       .bitDepth = 24,
                                       .channelCount = 6,
                                       .channelLayout = u"5.1(side)"_s,
                                       .bitRateBitsPerSecond = 13824000}));
}

TEST(ProbeReply, KnowsNoStreamWithoutItsCodec)
{
    EXPECT_EQ(readProbeReply("{}").audioStream, std::nullopt);
    EXPECT_EQ(readProbeReply(R"({"streams": null})").audioStream, std::nullopt);
    EXPECT_EQ(readProbeReply(R"({"streams": []})").audioStream, std::nullopt);
    EXPECT_EQ(streamOf(R"({"channels": 2}, {"codec_name": "flac"})"), std::nullopt);
}

TEST(ProbeReply, LeavesUnknownFactsOfAStreamAbsent)
{
    EXPECT_EQ(streamOf(R"({"codec_name": "aac"})"), AudioStreamInfo{.codecName = u"aac"_s});
    EXPECT_EQ(streamOf(R"({"codec_name": "aac", "sample_rate": "48000.5", "bit_rate": "N/A"})"),
              AudioStreamInfo{.codecName = u"aac"_s});
    EXPECT_EQ(
        streamOf(R"({"codec_name": "aac", "sample_rate": " 48000", "bit_rate": "9223372036854775808"})"),
        AudioStreamInfo{.codecName = u"aac"_s});
}

TEST(ProbeReply, KeepsTextsOfAStreamAsTheyStand)
{
    const auto stream =
        streamOf(R"({"codec_name": " x ", "profile": "", "channel_layout": "", "channels": 0})");
    EXPECT_EQ(stream,
              (AudioStreamInfo{
                  .codecName = u" x "_s, .profile = u""_s, .channelCount = 0, .channelLayout = u""_s}));
}

TEST(ProbeReply, PrefersTheRawBitDepth)
{
    const auto depth = [](const QByteArray &facts) {
        return streamOf(R"({"codec_name": "x")" + facts + "}").value().bitDepth;
    };
    EXPECT_EQ(depth(R"(, "bits_per_raw_sample": "24", "bits_per_sample": 32)"), 24);
    EXPECT_EQ(depth(R"(, "bits_per_raw_sample": "0", "bits_per_sample": 16)"), 16);
    EXPECT_EQ(depth(R"(, "bits_per_raw_sample": "-1", "bits_per_sample": 16)"), 16);
    EXPECT_EQ(depth(R"(, "bits_per_raw_sample": "24.0", "bits_per_sample": 16)"), 16);
    EXPECT_EQ(depth(R"(, "bits_per_raw_sample": "", "bits_per_sample": 16)"), 16);
    EXPECT_EQ(depth(R"(, "bits_per_raw_sample": "24")"), 24);
    EXPECT_EQ(depth(R"(, "bits_per_raw_sample": "0", "bits_per_sample": 0)"), std::nullopt);
    EXPECT_EQ(depth(R"(, "bits_per_sample": -1)"), std::nullopt);
    EXPECT_EQ(depth(""), std::nullopt);
}

TEST(ProbeReply, RefusesWhatIsNoJsonObject)
{
    for (const char *reply : {"", " ", "[]", "null", "text", "{", "{}{}", "{\"chapters\": [}"})
        EXPECT_TRUE(isRefused(reply)) << reply;
}

TEST(ProbeReply, RefusesValuesOfTheWrongTypeWhereverTheyStand)
{
    for (const char *reply : {
             R"({"chapters": {}})",
             R"({"chapters": "x"})",
             R"({"chapters": [null]})",
             R"({"chapters": [[]]})",
             R"({"chapters": [{"start_time": 12.5, "end_time": "13"}]})",
             R"({"chapters": [{"start_time": "12.5", "end_time": 13}]})",
             R"({"chapters": [{"tags": []}]})",
             R"({"chapters": [{"tags": {"title": 7}}]})",
             R"({"streams": {}})",
             R"({"streams": [1]})",
             R"({"streams": [{"codec_name": true}]})",
             R"({"streams": [{"profile": 1}]})",
             R"({"streams": [{"sample_rate": 48000}]})",
             R"({"streams": [{"channels": "2"}]})",
             R"({"streams": [{"channels": 2.5}]})",
             R"({"streams": [{"channel_layout": []}]})",
             R"({"streams": [{"bits_per_sample": "16"}]})",
             R"({"streams": [{"bits_per_raw_sample": 24}]})",
             R"({"streams": [{"bit_rate": 192000}]})",
             R"({"streams": [{"codec_name": "flac"}, {"channels": "2"}]})",
         }) {
        EXPECT_TRUE(isRefused(reply)) << reply;
    }
}

TEST(ProbeReply, ReadsThousandsOfChapters)
{
    QByteArray list;
    for (int index = 0; index < 5000; ++index)
        list += R"({"start_time": "1.5", "end_time": "2.5", "tags": {"title": "T"}},)";
    list.chop(1);
    const auto chapters = chaptersOf(list);
    ASSERT_EQ(chapters.size(), 5000);
    EXPECT_EQ(chapters.last(), chapter(4999, 1.5, 2.5, u"T"_s));
}

} // namespace tonearm
