// SPDX-License-Identifier: GPL-3.0-or-later
#include "cddafs/CdText.h"

#include "support/Text.h"

#include <cdio/cdtext.h>

#include <algorithm>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

constexpr int lastNumber = 99;

bool isLatin1(const QString &text)
{
    return std::all_of(text.begin(), text.end(), [](QChar unit) { return unit.unicode() <= 0xFF; });
}

// A tab stands for the title of the track before, two where characters have two bytes.
bool repeatsTitle(const QString &title)
{
    return title == u"\t"_s || title == u"\t\t"_s;
}

} // namespace

DiscTitles discTitles(const cdtext_s *text)
{
    DiscTitles titles;
    if (!text)
        return titles;
    titles.disc = titleText(cdtext_get_const(text, CDTEXT_FIELD_TITLE, 0));
    QString before;
    for (int number = 1; number <= lastNumber; ++number) {
        QString title = titleText(cdtext_get_const(text, CDTEXT_FIELD_TITLE, static_cast<track_t>(number)));
        if (repeatsTitle(title))
            title = before;
        if (!title.isEmpty())
            titles.tracks[number] = title;
        before = title;
    }
    return titles;
}

QString titleText(const char *given)
{
    const QByteArray bytes(given);
    const std::optional<QString> text = decodedUtf8(bytes);
    if (!text)
        return QString::fromLatin1(bytes);
    if (!isLatin1(*text))
        return *text;
    return decodedUtf8(text->toLatin1()).value_or(*text);
}

} // namespace tonearm
