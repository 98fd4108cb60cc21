// SPDX-License-Identifier: GPL-3.0-or-later
#include "encoding/RandomText.h"

#include <QStringList>

namespace tonearm::test {

using namespace Qt::StringLiterals;

namespace {

const QStringList &pieces()
{
    static const QStringList all = {
        u"a"_s,
        u"Z"_s,
        u"9"_s,
        u"é"_s,
        u"e\u0301"_s,
        u"ß"_s,
        u"語"_s,
        u"ア"_s,
        u"ж"_s,
        u"ع"_s,
        u"👨‍👩‍👧"_s,
        u"🇩🇪"_s,
        u"𝟗"_s,
        u"\u0301"_s,
        u"\u0338"_s,
        u"\u200D"_s,
        u"\u0600"_s,
        u"."_s,
        u"-"_s,
        u"-"_s,
        u" "_s,
        u"\t"_s,
        u"\u00A0"_s,
        u"\u3000"_s,
        u"\n"_s,
        u"\r\n"_s,
        u"\u0085"_s,
        u"\u2028"_s,
        u"\u0001"_s,
        u"\u007F"_s,
        u"/"_s,
        u"\\"_s,
        u":"_s,
        u"*"_s,
        u"?"_s,
        u"\""_s,
        u"<"_s,
        u">"_s,
        u"|"_s,
        u"'"_s,
        u"\u2019"_s,
        u"`"_s,
        u"\u00B4"_s,
        u"\u037E"_s,
        u"\u1FEF"_s,
        u";"_s,
        u"^"_s,
        u"%"_s,
        u"$"_s,
        u"#"_s,
        u"!"_s,
        u"~"_s,
        u","_s,
        u"("_s,
        u")"_s,
        u"_"_s,
        QString(1, u'\0'),
    };
    return all;
}

} // namespace

RandomText::RandomText(unsigned seed)
    : m_engine(seed)
{
}

std::size_t RandomText::below(std::size_t count)
{
    return m_engine() % count;
}

QString RandomText::next()
{
    constexpr std::size_t mostPieces = 160;
    // Few kinds of pieces in one text, so that runs of a kind are common.
    constexpr std::size_t mostKinds = 8;
    const QStringList &all = pieces();
    QStringList kinds;
    for (std::size_t count = 1 + below(mostKinds); count > 0; --count)
        kinds << all[static_cast<qsizetype>(below(static_cast<std::size_t>(all.size())))];
    QString text;
    for (std::size_t count = below(mostPieces + 1); count > 0; --count)
        text += kinds[static_cast<qsizetype>(below(static_cast<std::size_t>(kinds.size())))];
    return text;
}

} // namespace tonearm::test
