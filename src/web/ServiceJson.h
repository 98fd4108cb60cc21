// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "support/Json.h"
#include "web/MetadataServiceError.h"

#include <QByteArray>
#include <QString>

#include <type_traits>

namespace tonearm {

/// What a failure to read a service's reply is told as; a sentence.
QString replyFailureDetail(const JsonError &error);

/// Reads a service's reply: parses the body and hands it to `read`, a function that takes the
/// document's JsonNode and returns what it makes of it. A JsonError of either becomes a
/// MetadataServiceError (malformedResponse); other failures of `read` pass on.
template <typename Read>
std::invoke_result_t<Read, const JsonNode &> readServiceJson(const QByteArray &body, MetadataSource source,
                                                             const Read &read)
{
    try {
        return read(JsonNode::parse(body));
    } catch (const JsonError &error) {
        throw MetadataServiceError::malformedResponse(source, replyFailureDetail(error));
    }
}

} // namespace tonearm
