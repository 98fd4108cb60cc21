// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/editorwindow/WarningLabel.h"

#include "app/screens/elements/Announcement.h"
#include "app/screens/elements/Bind.h"
#include "app/screens/elements/IconLabel.h"
#include "app/screens/elements/ShowIfAny.h"

namespace tonearm {

IconLabel *makeWarningLabel(TextStyle style, const std::function<std::optional<QString>()> &warning,
                            QWidget *parent)
{
    auto *label = new IconLabel(IconName::warning, Tone::warning, parent);
    makeAnnouncer(label);
    applyTextStyle(label, style, Tone::warning);
    bind(label, warning, announceIfAny);
    return label;
}

} // namespace tonearm
