// SPDX-License-Identifier: GPL-3.0-or-later
#include "tageditor/ProbePayload.h"

#include "helpers/Await.h"
#include "helpers/Printing.h"
#include "support/Json.h"

#include <gtest/gtest.h>

namespace tonearm {

using namespace Qt::StringLiterals;

TEST(ProbePayload, HoldsWhatIsUsedAndIgnoresTheRest)
{
    const ProbePayload payload = ProbePayload::decoded(R"({
        "programs": 7,
        "streams": [{"index": 0, "codec_type": "audio", "tags": {"title": 1}, "disposition": {"default": "x"}},
                    {"codec_type": "video", "width": 10, "height": 20, "disposition": {"attached_pic": 1}}],
        "format": {"filename": 3, "format_name": "flac", "tags": {"A": "b", "": "nameless", "C": ""}}})");
    const ProbePayload expected{
        .streams =
            {{{.codecType = u"audio"_s, .sampleRate = {}, .attachedPic = {}, .width = {}, .height = {}},
              {.codecType = u"video"_s, .sampleRate = {}, .attachedPic = 1, .width = 10, .height = 20}}},
        .format = {{.formatName = u"flac"_s,
                    .tags = {{{u"A"_s, u"b"_s}, {u""_s, u"nameless"_s}, {u"C"_s, u""_s}}}}}};
    EXPECT_EQ(payload, expected);
    EXPECT_EQ(payload.audioStreamCount(), 1);
}

TEST(ProbePayload, MayLackEverything)
{
    EXPECT_EQ(ProbePayload::decoded("{}"), ProbePayload());
    EXPECT_EQ(ProbePayload::decoded(R"({"streams": null, "format": null})"), ProbePayload());
    EXPECT_EQ(ProbePayload().audioStreamCount(), 0);
}

TEST(ProbePayload, KnowsAFileWithoutSound)
{
    const auto lacksSound = [](const QByteArray &streams) {
        return ProbePayload::decoded("{\"streams\": [" + streams + "]}").lacksSound();
    };
    EXPECT_TRUE(lacksSound(R"({"codec_type": "audio", "sample_rate": "0"}, {"codec_type": "video"})"));
    EXPECT_FALSE(lacksSound(R"({"codec_type": "audio", "sample_rate": "44100"})"));
    EXPECT_FALSE(lacksSound(R"({"codec_type": "audio", "sample_rate": "0"},
                               {"codec_type": "audio", "sample_rate": "48000"})"));
    EXPECT_FALSE(lacksSound(R"({"codec_type": "audio"})"));
    EXPECT_FALSE(lacksSound(R"({"codec_type": "audio", "sample_rate": 0})"));
    EXPECT_FALSE(lacksSound(R"({"codec_type": "video"})"));
    EXPECT_FALSE(lacksSound(""));
    EXPECT_FALSE(ProbePayload().lacksSound());
}

TEST(ProbePayload, RefusesValuesOfTheWrongType)
{
    const QList<QByteArray> replies = {"",
                                       "no JSON",
                                       "[]",
                                       R"({"streams": {}})",
                                       R"({"streams": [1]})",
                                       R"({"streams": [{"width": "64"}]})",
                                       R"({"streams": [{"height": 1.5}]})",
                                       R"({"streams": [{"disposition": []}]})",
                                       R"({"streams": [{"disposition": {"attached_pic": true}}]})",
                                       R"({"format": []})",
                                       R"({"format": {"tags": []}})",
                                       R"({"format": {"tags": {"title": 7}}})",
                                       R"({"format": {"tags": {"title": null}}})",
                                       R"({"format": {"tags": {"title": "cut of)"};
    for (const QByteArray &reply : replies)
        EXPECT_TRUE(test::errorOf<JsonError>([&] { return ProbePayload::decoded(reply); }))
            << reply.toStdString();
}

} // namespace tonearm
