// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>

namespace tonearm {

/// All that stands before the samples in the AIFF file of a track with so many sectors: big-endian
/// 16-bit stereo at 44,100 Hz.
///
/// It is padded to the size of a sector, so that a reader who reads whole sectors from the file also
/// reads whole sectors from the disc.
QByteArray aiffHeader(qint64 sectors);

} // namespace tonearm
