// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/NaturalOrder.h"

#include <QLocale>

namespace tonearm {

namespace {

// The C locale has no collation, and with it the collator would forget about numbers.
QLocale collationLocale()
{
    const QLocale user = QLocale().collation();
    return user.language() == QLocale::C ? QLocale(QLocale::English) : user;
}

} // namespace

NaturalOrder::NaturalOrder()
    : m_collator(collationLocale())
{
    m_collator.setNumericMode(true);
    m_collator.setCaseSensitivity(Qt::CaseInsensitive);
}

int NaturalOrder::compare(const QString &first, const QString &second) const
{
    return m_collator.compare(first, second);
}

} // namespace tonearm
