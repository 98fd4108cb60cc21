// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QProgressBar>
#include <QString>

#include <functional>

namespace tonearm {

/// A bar that follows a share from 0 to 1, which has to be bindable.
QProgressBar *makeProgressBar(const QString &accessibleName, const std::function<double()> &share,
                              QWidget *parent);

} // namespace tonearm
