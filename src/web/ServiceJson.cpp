// SPDX-License-Identifier: GPL-3.0-or-later
#include "web/ServiceJson.h"

namespace tonearm {

using namespace Qt::StringLiterals;

QString replyFailureDetail(const JsonError &error)
{
    switch (error.kind) {
    case JsonError::Kind::typeMismatch:
    case JsonError::Kind::missingValue:
        return error.path.isEmpty() ? error.description() : u"Unexpected value at \"%1\"."_s.arg(error.path);
    case JsonError::Kind::keyNotFound:
        return u"Expected field \"%1\" was missing."_s.arg(error.key);
    case JsonError::Kind::corrupted:
        return u"The response wasn't valid JSON."_s;
    case JsonError::Kind::other:
        return u"The response couldn't be decoded."_s;
    }
    Q_UNREACHABLE();
}

} // namespace tonearm
