// SPDX-License-Identifier: GPL-3.0-or-later
#include "tageditor/TagTable.h"

#include "support/Text.h"
#include "workflow/records/DigitText.h"

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

struct Position
{
    QString number;
    QString total;
};

// "3/12" split at its slash. Slashes in front have nothing before them and don't count.
Position positionOf(const QString &value)
{
    QString text = trimmed(value);
    while (text.startsWith(u'/'))
        text.remove(0, 1);
    const qsizetype slash = text.indexOf(u'/');
    return {.number = digitsOnlyNumber(text.left(slash)),
            .total = slash < 0 ? QString() : digitsOnlyNumber(text.sliced(slash + 1))};
}

QString preferred(const TagTable &table, const QString &key, const QString &otherKey)
{
    const QString value = table.value(key);
    return trimmedBlanks(value).isEmpty() ? table.value(otherKey) : value;
}

const ProbePayload::Stream *firstPicture(const QList<ProbePayload::Stream> &streams)
{
    const auto found = std::find_if(streams.begin(), streams.end(), [](const ProbePayload::Stream &stream) {
        return stream.attachedPic == 1;
    });
    return found == streams.end() ? nullptr : &*found;
}

} // namespace

TagTable tagTable(const ProbePayload &payload)
{
    TagTable result;
    if (!payload.format || !payload.format->tags)
        return result;
    const QMap<QString, QString> &tags = *payload.format->tags;
    for (auto tag = tags.cbegin(); tag != tags.cend(); ++tag)
        result.insert(tag.key().toLower(), tag.value());
    return result;
}

AudioFileTags audioFileTags(const ProbePayload &payload)
{
    const TagTable table = tagTable(payload);
    const Position track = positionOf(preferred(table, u"track"_s, u"tracknumber"_s));
    const Position disc = positionOf(preferred(table, u"disc"_s, u"discnumber"_s));
    AudioFileTags result{
        .trackPosition = track.number,
        .artist = trimmed(table.value(u"artist"_s)),
        .album = trimmed(table.value(u"album"_s)),
        .title = trimmed(table.value(u"title"_s)),
        .year = firstFourDigits(trimmed(preferred(table, u"date"_s, u"year"_s))),
        .genre = trimmed(table.value(u"genre"_s)),
        .discNumber = disc.number,
        .trackTotal = track.total,
        .discTotal = disc.total,
        .hasAttachedPicture = false,
        .artworkPixelWidth = {},
        .artworkPixelHeight = {},
    };
    const QList<ProbePayload::Stream> streams = payload.streams.value_or(QList<ProbePayload::Stream>());
    if (const ProbePayload::Stream *const picture = firstPicture(streams)) {
        result.hasAttachedPicture = true;
        result.artworkPixelWidth = picture->width;
        result.artworkPixelHeight = picture->height;
    }
    return result;
}

} // namespace tonearm
