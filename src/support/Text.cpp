// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/Text.h"

#include <QTextBoundaryFinder>

namespace tonearm {

namespace {

// Whether a mark on such a letter is an accent, which a search may pass over.
bool takesAccents(char32_t letter)
{
    switch (QChar::script(letter)) {
    case QChar::Script_Latin:
    case QChar::Script_Greek:
    case QChar::Script_Cyrillic:
        return true;
    default:
        return false;
    }
}

bool isBlank(QChar unit)
{
    return unit == u'\t' || unit.category() == QChar::Separator_Space;
}

} // namespace

std::optional<QString> decodedUtf8(QByteArrayView bytes)
{
    return bytes.isValidUtf8() ? std::optional(QString::fromUtf8(bytes)) : std::nullopt;
}

QList<QStringView> characters(QStringView text)
{
    QList<QStringView> result;
    result.reserve(text.size());
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text.data(), text.size());
    qsizetype begin = 0;
    for (qsizetype end = finder.toNextBoundary(); end != -1; end = finder.toNextBoundary()) {
        result.append(text.sliced(begin, end - begin));
        begin = end;
    }
    return result;
}

qsizetype characterCount(QStringView text)
{
    return characters(text).size();
}

QString firstCharacters(const QString &text, qsizetype count)
{
    const QList<QStringView> all = characters(text);
    if (all.size() <= count)
        return text;
    return text.left(all[count].data() - text.constData());
}

QString trimmed(const QString &text)
{
    return text.trimmed();
}

QString trimmedBlanks(const QString &text)
{
    qsizetype begin = 0;
    qsizetype end = text.size();
    while (begin < end && isBlank(text[begin]))
        ++begin;
    while (end > begin && isBlank(text[end - 1]))
        --end;
    return text.mid(begin, end - begin);
}

char32_t firstScalar(QStringView character)
{
    if (character.size() > 1 && character[0].isHighSurrogate() && character[1].isLowSurrogate())
        return QChar::surrogateToUcs4(character[0], character[1]);
    return character.isEmpty() ? U'\0' : character[0].unicode();
}

bool isNumeric(QStringView character)
{
    return QChar::isNumber(firstScalar(character));
}

QString counted(qint64 count, const QString &noun)
{
    const QString text = QString::number(count) + u' ' + noun;
    return count == 1 ? text : QString(text + u's');
}

QString withoutNull(QString text)
{
    return text.remove(QChar::Null);
}

QString folded(const QString &text)
{
    const QString decomposed = text.toCaseFolded().normalized(QString::NormalizationForm_D);
    QString result;
    result.reserve(decomposed.size());
    bool isOnAccented = false;
    for (const char32_t scalar : decomposed.toUcs4()) {
        const bool isMark = QChar::isMark(scalar);
        if (!isMark)
            isOnAccented = takesAccents(scalar);
        if (!isMark || !isOnAccented)
            result.append(QChar::fromUcs4(scalar));
    }
    return result;
}

} // namespace tonearm
