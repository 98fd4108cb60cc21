// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/EncodingCompletion.h"

#include "support/Text.h"

namespace tonearm {

using namespace Qt::StringLiterals;

QString EncodingCompletion::summary() const
{
    return u"Encoded "_s + counted(fileCount, u"track"_s);
}

} // namespace tonearm
