// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>

namespace tonearm::test {

/// Little-endian samples that wander about, the same each time. cd-paranoia finds the byte order of what it
/// reads by which of the two makes the smoother sound; noise would leave it guessing.
QByteArray smoothSound(qint64 byteCount);

} // namespace tonearm::test
