// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QWidget>

namespace tonearm {

/// A text as a tooltip that shows it as it is: Qt takes a tooltip that looks like markup for markup.
inline QString plainTooltip(const QString &text)
{
    return QStringLiteral("<p style=\"white-space:pre-wrap\">%1</p>").arg(text.toHtmlEscaped());
}

/// Gives a control a tooltip of some length, which is wrapped. Assistive tools are told the text without
/// what wraps it.
inline void setLongTooltip(QWidget *widget, const QString &text)
{
    widget->setToolTip(plainTooltip(text));
    widget->setAccessibleDescription(text);
}

} // namespace tonearm
