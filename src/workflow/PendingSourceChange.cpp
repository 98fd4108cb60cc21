// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/PendingSourceChange.h"

#include "support/PathText.h"

namespace tonearm {

using namespace Qt::StringLiterals;

QString PendingSourceChange::sourceName() const
{
    const auto *disc = std::get_if<DiscInfo>(&source);
    return disc ? disc->volumeName : lastPathComponent(std::get<QUrl>(source));
}

QString PendingSourceChange::message() const
{
    return u"Loading %1 will discard %2. Nothing has been encoded yet."_s.arg(sourceName(), summary);
}

} // namespace tonearm
