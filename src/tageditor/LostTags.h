// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tageditor/TagTable.h"

#include <QStringList>

namespace tonearm {

/// The names of the tags that a file had before a rewrite and hasn't after it, sorted. Left out are those
/// that the plan itself writes (`metadata` of TagWrite) and those that ffmpeg makes anew. Only whether a tag
/// is there counts, not its value.
QStringList lostTags(const TagTable &before, const TagTable &after, const QStringList &metadata);

} // namespace tonearm
