// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tageditor/AudioFileTags.h"
#include "tageditor/ProbePayload.h"

#include <QMap>
#include <QString>

namespace tonearm {

/// Tags by their keys in lower case.
using TagTable = QMap<QString, QString>;

/// Every tag of the file as a whole. Of keys that differ in case alone, the last in the order of their code
/// points wins.
TagTable tagTable(const ProbePayload &payload);

/// The fields that the editor shows. The containers' names for one and the same tag differ in case, hence
/// the table.
AudioFileTags audioFileTags(const ProbePayload &payload);

} // namespace tonearm
