// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace tonearm {

/// Gives the second of two open files the first one's owner where that is permitted, mode, access control
/// list and extended attributes, and nothing but these. Throws std::system_error. Blocks.
void copyAttributes(int from, int to);

} // namespace tonearm
