// SPDX-License-Identifier: GPL-3.0-or-later
#include "encoding/FileNaming.h"

#include "support/FileName.h"
#include "support/Numbers.h"
#include "support/Text.h"

#include <algorithm>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype maximumFolderCharacters = 100;
constexpr qsizetype maximumTitleCharacters = 120;

constexpr QStringView hyphenatedInFolders = u"/\\:*?\"<>|";
constexpr QStringView droppedFromTitles = u".`'\u2019\u2018\u02BC\u00B4\"\u201C\u201D";
constexpr QStringView hyphenatedInTitles = u" \\/:;^%$#!~,?<>|*";

enum class Fate { kept, dropped, hyphenated };

// Compared as characters: a letter with a mark on it is another one, a canonical equivalent the same.
bool isOneOf(QStringView list, QStringView character)
{
    const QString composed = character.toString().normalized(QString::NormalizationForm_C);
    return composed.size() == 1 && list.contains(composed.front());
}

bool breaksLine(QStringView character)
{
    const char32_t scalar = firstScalar(character);
    return (scalar >= 0x0A && scalar <= 0x0D) || scalar == 0x85 || scalar == 0x2028 || scalar == 0x2029;
}

bool containsControl(QStringView character)
{
    return std::any_of(character.begin(), character.end(), [](QChar unit) { return unit < u' '; });
}

// No name can hold these two, not even with a mark on them.
bool containsUnnameable(QStringView character)
{
    return character.contains(u'/') || character.contains(QChar::Null);
}

Fate fateInFolders(QStringView character)
{
    if (breaksLine(character) || containsControl(character))
        return Fate::dropped;
    if (isOneOf(hyphenatedInFolders, character) || containsUnnameable(character))
        return Fate::hyphenated;
    return Fate::kept;
}

Fate fateInTitles(QStringView character)
{
    if (isOneOf(droppedFromTitles, character))
        return Fate::dropped;
    if (isOneOf(hyphenatedInTitles, character) || breaksLine(character) || containsUnnameable(character))
        return Fate::hyphenated;
    return Fate::kept;
}

// Hyphens in a row become one.
QString rewritten(const QString &text, Fate (*fateOf)(QStringView))
{
    QString result;
    for (const QStringView character : characters(text)) {
        const Fate fate = fateOf(character);
        if (fate == Fate::kept)
            result.append(character);
        else if (fate == Fate::hyphenated)
            result.append(u'-');
    }
    while (result.contains(u"--"_s))
        result.replace(u"--"_s, u"-"_s);
    return result;
}

QString withoutLeading(QStringView unwanted, QString text)
{
    while (!text.isEmpty() && unwanted.contains(text.front()))
        text.remove(0, 1);
    return text;
}

QString withoutTrailing(QStringView unwanted, QString text)
{
    while (!text.isEmpty() && unwanted.contains(text.back()))
        text.chop(1);
    return text;
}

QString trimmedHyphens(const QString &text)
{
    return withoutTrailing(u"-", withoutLeading(u"-", text));
}

QString cleanedTitle(const QString &title)
{
    const QString whole = trimmedHyphens(rewritten(trimmed(title), fateInTitles));
    return trimmedHyphens(firstCharacters(whole, maximumTitleCharacters));
}

// What of the title fits into one file name together with what stands round it.
QString fittedTitle(const QString &title, const QString &surroundings)
{
    return trimmedHyphens(fittedFileName(title, surroundings).chopped(surroundings.size()));
}

} // namespace

std::optional<QString> cleanedFolderName(const QString &text)
{
    QString name = trimmedBlanks(rewritten(text, fateInFolders));
    name = withoutTrailing(u". -", withoutLeading(u".-", name));
    name = trimmedBlanks(firstCharacters(trimmedBlanks(name), maximumFolderCharacters));
    name = trimmedBlanks(fittedFileName(name));
    // The two names that every folder holds already, this one and the one above it.
    const bool isTaken = name == u"."_s || name == u".."_s;
    return name.isEmpty() || isTaken ? std::nullopt : std::optional(name);
}

QString outputFilename(const QString &title, qint64 number)
{
    const QString digits = padded(number, 2);
    const QString prefix = digits + u'-';
    const QString extension = u".flac"_s;
    const QString fitted = fittedTitle(cleanedTitle(title), prefix + extension);
    return prefix + (fitted.isEmpty() ? QString(u"Track-"_s + digits) : fitted) + extension;
}

} // namespace tonearm
