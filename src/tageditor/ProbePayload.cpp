// SPDX-License-Identifier: GPL-3.0-or-later
#include "tageditor/ProbePayload.h"

#include "support/Json.h"

#include <QJsonObject>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

// For what only the checks need: of another type it counts as absent.
std::optional<QString> textIfAny(const JsonNode &node, const QString &key)
{
    const QJsonValue value = node.value().toObject().value(key);
    return value.isString() ? std::optional(value.toString()) : std::nullopt;
}

bool isAudio(const ProbePayload::Stream &stream)
{
    return stream.codecType == u"audio"_s;
}

ProbePayload::Stream streamOf(const JsonNode &node)
{
    const std::optional<JsonNode> disposition = node.findObject(u"disposition"_s);
    return {
        .codecType = textIfAny(node, u"codec_type"_s),
        .sampleRate = textIfAny(node, u"sample_rate"_s),
        .attachedPic = disposition ? disposition->findInteger(u"attached_pic"_s) : std::nullopt,
        .width = node.findInteger(u"width"_s),
        .height = node.findInteger(u"height"_s),
    };
}

QMap<QString, QString> tagsOf(const JsonNode &node)
{
    QMap<QString, QString> result;
    for (const QString &key : node.value().toObject().keys())
        result.insert(key, node.require(key).text());
    return result;
}

ProbePayload::Format formatOf(const JsonNode &node)
{
    const std::optional<JsonNode> tags = node.findObject(u"tags"_s);
    return {.formatName = textIfAny(node, u"format_name"_s),
            .tags = tags ? std::optional(tagsOf(*tags)) : std::nullopt};
}

} // namespace

ProbePayload ProbePayload::decoded(const QByteArray &reply)
{
    const JsonNode root = JsonNode::parse(reply);
    ProbePayload result;
    if (const std::optional<QList<JsonNode>> nodes = root.findElements(u"streams"_s)) {
        result.streams.emplace();
        for (const JsonNode &node : *nodes)
            result.streams->append(streamOf(node));
    }
    if (const std::optional<JsonNode> node = root.findObject(u"format"_s))
        result.format = formatOf(*node);
    return result;
}

qsizetype ProbePayload::audioStreamCount() const
{
    return streams ? std::count_if(streams->begin(), streams->end(), isAudio) : 0;
}

bool ProbePayload::lacksSound() const
{
    return audioStreamCount() > 0 && std::all_of(streams->begin(), streams->end(), [](const Stream &stream) {
               return !isAudio(stream) || stream.sampleRate == u"0"_s;
           });
}

} // namespace tonearm
