// SPDX-License-Identifier: GPL-3.0-or-later
#include "encoding/ProbeReply.h"

#include "support/JsonLists.h"
#include "support/Numbers.h"
#include "support/Text.h"

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

// The reply as it stands, read whole before any of it is used.
struct ProbedChapter
{
    std::optional<QString> startTime;
    std::optional<QString> endTime;
    std::optional<QString> title;
};

struct ProbedStream
{
    std::optional<QString> codecName;
    std::optional<QString> profile;
    std::optional<QString> sampleRate;
    std::optional<qint64> channels;
    std::optional<QString> channelLayout;
    std::optional<qint64> bitsPerSample;
    std::optional<QString> bitsPerRawSample;
    std::optional<QString> bitRate;
};

ProbedChapter probedChapter(const JsonNode &node)
{
    const std::optional<JsonNode> tags = node.findObject(u"tags"_s);
    return {
        .startTime = node.findText(u"start_time"_s),
        .endTime = node.findText(u"end_time"_s),
        .title = tags ? tags->findText(u"title"_s) : std::nullopt,
    };
}

ProbedStream probedStream(const JsonNode &node)
{
    return {
        .codecName = node.findText(u"codec_name"_s),
        .profile = node.findText(u"profile"_s),
        .sampleRate = node.findText(u"sample_rate"_s),
        .channels = node.findInteger(u"channels"_s),
        .channelLayout = node.findText(u"channel_layout"_s),
        .bitsPerSample = node.findInteger(u"bits_per_sample"_s),
        .bitsPerRawSample = node.findText(u"bits_per_raw_sample"_s),
        .bitRate = node.findText(u"bit_rate"_s),
    };
}

QString titleOf(const ProbedChapter &chapter, qint64 index)
{
    const QString title = trimmed(chapter.title.value_or(QString()));
    return title.isEmpty() ? u"Chapter %1"_s.arg(index + 1) : title;
}

QList<ChapterInfo> chapterList(const QList<ProbedChapter> &probed)
{
    QList<ChapterInfo> result;
    result.reserve(probed.size());
    for (qsizetype index = 0; index < probed.size(); ++index) {
        const ProbedChapter &chapter = probed[index];
        const std::optional<double> start = parseDouble(chapter.startTime.value_or(QString()));
        const std::optional<double> end = parseDouble(chapter.endTime.value_or(QString()));
        if (!start || !end)
            continue;
        const QString title = titleOf(chapter, index);
        result.append(ChapterInfo{
            .id = index,
            .startSeconds = *start,
            .endSeconds = *end,
            .originalTitle = title,
            .mappedTitle = title,
        });
    }
    return result;
}

// The raw figure is the depth of the recording; the other one is the size of a decoded sample.
std::optional<qint64> bitDepthOf(const ProbedStream &stream)
{
    const std::optional<qint64> raw = parseInteger(stream.bitsPerRawSample.value_or(QString()));
    if (raw && *raw > 0)
        return raw;
    if (stream.bitsPerSample && *stream.bitsPerSample > 0)
        return stream.bitsPerSample;
    return std::nullopt;
}

std::optional<AudioStreamInfo> audioStreamOf(const QList<ProbedStream> &streams)
{
    if (streams.isEmpty() || !streams.first().codecName)
        return std::nullopt;
    const ProbedStream &stream = streams.first();
    return AudioStreamInfo{
        .codecName = *stream.codecName,
        .profile = stream.profile,
        .sampleRateHertz = parseInteger(stream.sampleRate.value_or(QString())),
        .bitDepth = bitDepthOf(stream),
        .channelCount = stream.channels,
        .channelLayout = stream.channelLayout,
        .bitRateBitsPerSecond = parseInteger(stream.bitRate.value_or(QString())),
    };
}

} // namespace

SourceInspection readProbeReply(const QByteArray &reply)
{
    const JsonNode root = JsonNode::parse(reply);
    const QList<ProbedChapter> chapters = readList(root, u"chapters"_s, probedChapter);
    const QList<ProbedStream> streams = readList(root, u"streams"_s, probedStream);
    return {.chapters = chapterList(chapters), .audioStream = audioStreamOf(streams)};
}

} // namespace tonearm
