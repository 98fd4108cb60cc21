// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/PendingSourceChange.h"

namespace tonearm {

using namespace Qt::StringLiterals;

QString PendingSourceChange::sourceName() const
{
    return source.fileName();
}

QString PendingSourceChange::message() const
{
    return u"Loading %1 will discard %2. Nothing has been encoded yet."_s.arg(sourceName(), summary);
}

} // namespace tonearm
