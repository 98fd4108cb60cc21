// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "helpers/FFmpegStandIn.h"

namespace tonearm::test {

/// The real ffmpeg, except for files about which it is told something else. It leaves "started-<name>" for
/// each that it works on.
class ToldFFmpeg : public FFmpegStandIn
{
public:
    ToldFFmpeg();

    /// "hold" a file until it is told to "go" on with it, "fail" with it, or "strip" it of its tags.
    void tell(const QString &what, const QString &name) const;

    bool waitUntilStarted(const QString &name) const { return waitFor(QStringLiteral("started-") + name); }
};

/// Gives an M4A file more identifiers than ffmpeg carries over: 30.
void addIdentifiers(const QString &path);

} // namespace tonearm::test
