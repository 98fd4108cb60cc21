// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/elements/Motion.h"

#include <QStyle>
#include <QWidget>

namespace tonearm {

bool wantsMotion(const QWidget *widget)
{
    return widget->style()->styleHint(QStyle::SH_Widget_Animation_Duration, nullptr, widget) > 0;
}

} // namespace tonearm
