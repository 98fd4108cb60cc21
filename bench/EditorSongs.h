// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "helpers/EditorFixture.h"

namespace tonearm::bench {

/// Fills the folder of songs with so many short FLAC files, named and titled by their number. One is encoded;
/// the others are copies of it with another title and track.
void makeSongs(const test::EditorFixture &fixture, int count);

} // namespace tonearm::bench
