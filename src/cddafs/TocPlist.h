// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cddafs/DiscLayout.h"

#include <QByteArray>

namespace tonearm {

/// The contents of a volume's .TOC.plist, in XML. Its block numbers count from the start of the disc's
/// lead-in, 150 more than logical sectors, as disc IDs are computed.
QByteArray tocPlist(const DiscLayout &layout);

} // namespace tonearm
