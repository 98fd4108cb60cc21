// SPDX-License-Identifier: GPL-3.0-or-later
#include "tageditor/TagWrite.h"

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

QStringList keysOf(EditableTagField field)
{
    switch (field) {
    case EditableTagField::trackPosition:
        return {u"track"_s};
    case EditableTagField::artist:
        return {u"artist"_s, u"album_artist"_s};
    case EditableTagField::album:
        return {u"album"_s};
    case EditableTagField::title:
        return {u"title"_s};
    case EditableTagField::year:
        return {u"date"_s};
    case EditableTagField::genre:
        return {u"genre"_s};
    case EditableTagField::discNumber:
        return {u"disc"_s};
    }
    Q_UNREACHABLE();
}

QString totalOf(EditableTagField field, const AudioFileTags &tags)
{
    if (field == EditableTagField::trackPosition)
        return tags.trackTotal;
    return field == EditableTagField::discNumber ? tags.discTotal : QString();
}

// Without a value the tag is cleared, its total too.
QString writtenValue(EditableTagField field, const QString &value, const AudioFileTags &tags)
{
    const QString total = totalOf(field, tags);
    return value.isEmpty() || total.isEmpty() ? value : QString(value + u'/' + total);
}

ArtworkWrite artworkWrite(const ArtworkIntent &intent, bool hasPicture)
{
    switch (intent.kind) {
    case ArtworkIntent::Kind::replace:
        return ArtworkWrite::replace(intent.url);
    case ArtworkIntent::Kind::untouched:
        return ArtworkWrite::keep();
    case ArtworkIntent::Kind::remove:
        return hasPicture ? ArtworkWrite::remove() : ArtworkWrite::keep();
    }
    Q_UNREACHABLE();
}

} // namespace

TagWrite tagWrite(const EditableAudioFile &file, const TagChangeSet &changes)
{
    const QMap<EditableTagField, QString> edits = changes.fieldEdits.value(file.url);
    TagWrite result{.metadata = {},
                    .artwork =
                        artworkWrite(changes.artworkIntents.value(file.url), file.tags.hasAttachedPicture)};
    for (const EditableTagField field : allEditableTagFields) {
        if (!edits.contains(field))
            continue;
        const QString value = normalForm(field, edits.value(field));
        if (value == file.tags.value(field))
            continue;
        for (const QString &key : keysOf(field))
            result.metadata << u"-metadata"_s << key + u'=' + writtenValue(field, value, file.tags);
    }
    return result;
}

} // namespace tonearm
