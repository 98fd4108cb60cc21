// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/screens/elements/TextStyle.h"

#include <QString>

#include <functional>
#include <optional>

namespace tonearm {

class IconLabel;

/// A warning in its colour, to be seen while there is one. `warning` has to be bindable. A screen reader
/// tells it when it comes up.
IconLabel *makeWarningLabel(TextStyle style, const std::function<std::optional<QString>()> &warning,
                            QWidget *parent);

} // namespace tonearm
