// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/records/DigitText.h"

#include "support/Numbers.h"
#include "support/Text.h"

namespace tonearm {

QString firstFourDigits(const QString &text)
{
    constexpr int wanted = 4;
    QString run;
    int length = 0;
    for (const QStringView character : characters(text)) {
        if (!isNumeric(character)) {
            run.clear();
            length = 0;
            continue;
        }
        run += character;
        if (++length == wanted)
            return run;
    }
    return {};
}

QString digitsOnlyNumber(const QString &text)
{
    QString numerals;
    for (const QStringView character : characters(text)) {
        if (isNumeric(character))
            numerals += character;
    }
    const qint64 value = parseInteger(numerals).value_or(0);
    return value >= 1 ? QString::number(value) : QString();
}

} // namespace tonearm
