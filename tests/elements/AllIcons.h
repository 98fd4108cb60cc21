// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/screens/elements/Icons.h"

#include <QList>

namespace tonearm::test {

inline QList<IconName> allIcons()
{
    QList<IconName> names;
    for (int name = 0; name <= static_cast<int>(IconName::hiresBadge); ++name)
        names.append(static_cast<IconName>(name));
    return names;
}

} // namespace tonearm::test
