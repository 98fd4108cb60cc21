// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/editorwindow/WarningLabel.h"

#include "app/screens/elements/Announcement.h"
#include "app/screens/elements/Bind.h"
#include "app/screens/elements/IconLabel.h"

namespace tonearm {

IconLabel *makeWarningLabel(TextStyle style, const std::function<std::optional<QString>()> &warning,
                            QWidget *parent)
{
    auto *label = new IconLabel(IconName::warning, Tone::warning, parent);
    makeAnnouncer(label);
    applyTextStyle(label, style, Tone::warning);
    bind(label, warning, [](IconLabel *shown, const std::optional<QString> &text) {
        shown->setText(text.value_or(QString()));
        shown->setAccessibleName(shown->text());
        shown->setVisible(text.has_value());
        if (text)
            announce(shown);
    });
    return label;
}

} // namespace tonearm
