// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QUrl>
#include <QUuid>

namespace tonearm {

/// A folder that waits for the user's word, because opening it would discard edits.
struct PendingFolderChange
{
    QUuid id = QUuid::createUuid();
    QUrl url;

    bool operator==(const PendingFolderChange &) const = default;
};

} // namespace tonearm
