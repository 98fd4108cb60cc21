// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QProgressBar>

#include <functional>

namespace tonearm {

/// A bar of a fixed width that follows a share from 0 to 1, which has to be bindable.
QProgressBar *makeProgressBar(int width, const QString &accessibleName, const std::function<double()> &share,
                              QWidget *parent);

} // namespace tonearm
