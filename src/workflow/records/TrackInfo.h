// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QUuid>

#include <optional>

namespace tonearm {

/// One track of a release.
struct TrackInfo
{
    /// Tells apart tracks that are otherwise alike; belongs to this record, not to the service.
    QUuid id = QUuid::createUuid();
    /// As the service gives it, for example "A2" of a record's first side.
    QString position = {};
    QString title = {};
    std::optional<qint64> durationMilliseconds = {};

    bool operator==(const TrackInfo &) const = default;
};

} // namespace tonearm
