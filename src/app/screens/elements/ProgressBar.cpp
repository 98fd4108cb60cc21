// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/elements/ProgressBar.h"

#include "app/screens/elements/Bind.h"

namespace tonearm {

QProgressBar *makeProgressBar(const QString &accessibleName, const std::function<double()> &share,
                              QWidget *parent)
{
    // Finer than a pixel of the bar on any screen.
    constexpr int steps = 10000;
    auto *bar = new QProgressBar(parent);
    bar->setRange(0, steps);
    bar->setTextVisible(false);
    bar->setAccessibleName(accessibleName);
    bind(
        bar, [share] { return qRound(share() * steps); }, &QProgressBar::setValue);
    return bar;
}

} // namespace tonearm
