// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "disc/DiscTrack.h"

#include <QString>
#include <QStringList>

namespace tonearm {

/// The argument list that makes cd-paranoia read a track from a device, or an image, into a WAV file.
///
/// A track in front of a data session is read by its length from the disc's table of contents, and not to
/// what the drive takes for its end: behind the audio lies a gap that can't be read as such.
QStringList paranoiaArguments(const DiscTrack &track, const QString &device, const QString &output);

} // namespace tonearm
