// SPDX-License-Identifier: GPL-3.0-or-later
#include "disc/TrackFileName.h"

#include "support/AudioDisc.h"
#include "support/Numbers.h"
#include "support/Text.h"

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

qsizetype leadingNumberLength(const QString &text)
{
    qsizetype length = 0;
    for (const QStringView character : characters(text)) {
        if (!isNumeric(character))
            break;
        length += character.size();
    }
    return length;
}

std::optional<QString> titleOf(const QString &text)
{
    const QString title = trimmedBlanks(text);
    if (title.isEmpty() || title == untitledTrackName)
        return std::nullopt;
    return title;
}

} // namespace

std::optional<TrackFileName> TrackFileName::parse(const QString &name)
{
    if (!name.endsWith(trackFileEnding, Qt::CaseInsensitive))
        return std::nullopt;
    const QString stem = name.chopped(trackFileEnding.size());
    const qsizetype length = leadingNumberLength(stem);
    // Not everything that is a number in Unicode's sense is a decimal digit.
    const std::optional<qint64> number = parseInteger(stem.left(length));
    if (!number)
        return std::nullopt;
    return TrackFileName{.number = *number, .title = titleOf(stem.sliced(length))};
}

} // namespace tonearm
