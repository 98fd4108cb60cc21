// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QUuid>

namespace tonearm {

/// A finished job; the summary on screen hangs on it.
struct EncodingCompletion
{
    QUuid id = QUuid::createUuid();
    qint64 fileCount = 0;

    /// "Encoded 12 tracks".
    QString summary() const;

    bool operator==(const EncodingCompletion &) const = default;
};

} // namespace tonearm
