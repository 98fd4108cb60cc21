// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "encoding/SourceInspection.h"

#include <QByteArray>

namespace tonearm {

/// Reads what ffprobe prints as JSON about a file's chapters and its first audio stream.
///
/// A chapter without a readable start or end is left out; the ids of the others still count it. The
/// list of chapters may be empty. Throws JsonError if the reply is no JSON object or a value in it has
/// the wrong type, also in a part that would not have been used.
SourceInspection readProbeReply(const QByteArray &reply);

} // namespace tonearm
