// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArrayView>
#include <QList>
#include <QString>
#include <QStringView>

#include <optional>

namespace tonearm {

/// The text that some bytes stand for; nothing if they aren't valid UTF-8.
std::optional<QString> decodedUtf8(QByteArrayView bytes);

/// The characters of a text as a person sees them (grapheme clusters). The views lie in the text.
QList<QStringView> characters(QStringView text);

/// How many characters a person sees.
qsizetype characterCount(QStringView text);

/// The first `count` characters, or the whole text if it has no more.
QString firstCharacters(const QString &text, qsizetype count);

/// The text without white space and line ends at both ends: QString::trimmed.
QString trimmed(const QString &text);

/// The text without blanks (spaces of every width, and tabs) at both ends; line ends stay.
QString trimmedBlanks(const QString &text);

/// The first code point of a character.
char32_t firstScalar(QStringView character);

/// Whether a character is a number in Unicode's sense, told by its first code point.
bool isNumeric(QStringView character);

/// The number with its noun: "1 track", "2 tracks". The noun is given in the singular and takes an "s".
QString counted(qint64 count, const QString &noun);

/// The text without U+0000, at which a text ends for programs that are given it.
QString withoutNull(QString text);

/// The form in which texts are compared regardless of case and accents: case folded, decomposed,
/// without the marks on Latin, Greek and Cyrillic letters. Other scripts tell words apart by theirs.
QString folded(const QString &text);

} // namespace tonearm
