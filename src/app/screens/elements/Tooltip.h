// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace tonearm {

/// A text as a tooltip that shows it as it is: Qt takes a tooltip that looks like markup for markup.
inline QString plainTooltip(const QString &text)
{
    return QStringLiteral("<p style=\"white-space:pre-wrap\">%1</p>").arg(text.toHtmlEscaped());
}

} // namespace tonearm
