// SPDX-License-Identifier: GPL-3.0-or-later
#include "metadata/TrimmedID.h"

#include "support/Text.h"
#include "web/MetadataServiceError.h"

namespace tonearm {

QString trimmedID(const QString &id)
{
    const QString text = trimmed(id);
    if (text.isEmpty())
        throw MetadataServiceError::invalidQuery(id);
    return text;
}

} // namespace tonearm
