// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QUuid>

namespace tonearm {

/// A window that the user wants closed while a job runs.
struct PendingClose
{
    QUuid id = QUuid::createUuid();

    bool operator==(const PendingClose &) const = default;
};

} // namespace tonearm
