// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "support/Json.h"

namespace tonearm {

/// Reads each element of the array under a key, in order; an array that is absent or null reads as empty.
template <typename Record>
QList<Record> readList(const JsonNode &node, const QString &key, Record (*read)(const JsonNode &))
{
    QList<Record> result;
    for (const JsonNode &element : node.findElements(key).value_or(QList<JsonNode>()))
        result.append(read(element));
    return result;
}

/// The text under a key, empty if it is absent or null.
inline QString textOrEmpty(const JsonNode &node, const QString &key)
{
    return node.findText(key).value_or(QString());
}

} // namespace tonearm
