// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cddafs/DiscLayout.h"

#include <QByteArray>

#include <optional>

namespace tonearm {

/// Reads a drive's answer to READ TOC/PMA/ATIP with format 2 (full table of contents), which alone tells
/// the sessions apart. Nothing if it is cut off, or a session has no tracks or no lead-out.
std::optional<DiscLayout> readFullToc(const QByteArray &reply);

} // namespace tonearm
