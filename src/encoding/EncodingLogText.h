// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "encoding/EncodingLog.h"

#include <QString>

namespace tonearm {

/// The log's text as it is written to its file. English in every locale; dates in the machine's time zone.
QString encodingLogText(const EncodingLog &log);

} // namespace tonearm
