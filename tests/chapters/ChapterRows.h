// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/screens/chapters/ChapterTableRow.h"

#include <QList>

namespace tonearm::test {

/// Rows numbered from 1, each with texts that tell its number.
inline QList<ChapterTableRow> chapterRows(int count)
{
    using namespace Qt::StringLiterals;
    QList<ChapterTableRow> rows;
    for (int number = 1; number <= count; ++number) {
        const QString text = QString::number(number);
        rows.append({.number = text,
                     .sourceTitle = u"Source title "_s + text,
                     .length = u"%1:%2"_s.arg(number / 60).arg(number % 60, 2, 10, QLatin1Char('0')),
                     .songTitle = u"Song "_s + text});
    }
    return rows;
}

} // namespace tonearm::test
