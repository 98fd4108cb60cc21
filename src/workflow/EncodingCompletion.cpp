// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/EncodingCompletion.h"

namespace tonearm {

using namespace Qt::StringLiterals;

QString EncodingCompletion::summary() const
{
    return fileCount == 1 ? u"Encoded 1 track"_s : u"Encoded %1 tracks"_s.arg(fileCount);
}

} // namespace tonearm
