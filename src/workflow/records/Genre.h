// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace tonearm {

/// A genre that is offered for choice, known by its name.
struct Genre
{
    QString name = {};

    bool operator==(const Genre &) const = default;
};

} // namespace tonearm
