// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace tonearm {

/// How far a job has come.
struct EncodingProgress
{
    /// From 1.
    qint64 trackNumber = 0;
    qint64 totalTracks = 0;
    QString title = {};
    /// Of the whole job, 0 to 1.
    double overallFraction = 0;

    /// The job's progress when `fraction` of the track at `index`, from 0, of `count` is done.
    static EncodingProgress within(qint64 index, qint64 count, const QString &title, double fraction);

    /// "Encoding 3 of 12: So What".
    QString message() const;

    bool operator==(const EncodingProgress &) const = default;
};

} // namespace tonearm
