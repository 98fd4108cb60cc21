// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>

namespace tonearm::fuzz {

/// What one program tries: takes foreign bytes, and breaks off the program if anything is wrong.
void tryBytes(const QByteArray &bytes);

} // namespace tonearm::fuzz
