// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <optional>

namespace tonearm {

/// What a volume's file name says of a track: "<number> <title>.aiff".
struct TrackFileName
{
    qint64 number = 0;
    /// Nothing if the name has none, or only the volume's placeholder for none.
    std::optional<QString> title = {};

    /// Nothing if no track's file is called that.
    static std::optional<TrackFileName> parse(const QString &name);

    bool operator==(const TrackFileName &) const = default;
};

} // namespace tonearm
