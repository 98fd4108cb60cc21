// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/elements/ShowIfAny.h"

#include "app/screens/elements/Announcement.h"

#include <QLabel>

namespace tonearm {

void showIfAny(QLabel *label, const std::optional<QString> &text)
{
    const QString words = text.value_or(QString());
    label->setText(words);
    label->setVisible(!words.isEmpty());
}

void announceIfAny(QLabel *announcer, const std::optional<QString> &text)
{
    // First, as it is told when the label comes into view.
    announcer->setAccessibleName(text.value_or(QString()));
    showIfAny(announcer, text);
    announce(announcer);
}

} // namespace tonearm
