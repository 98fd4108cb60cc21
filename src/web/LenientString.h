// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "support/Json.h"

#include <QJsonValue>
#include <QString>

namespace tonearm {

/// A text that a service sends now as a text and now as a number.
struct LenientString
{
    QString text;

    /// A number reads as its whole part in decimal. Whatever is neither a text nor a number, and a
    /// number beyond a signed 64-bit integer, reads as the empty text.
    static LenientString read(const QJsonValue &value);

    /// What stands under a key of this object; the empty text if nothing does. Throws JsonError if this
    /// is no object.
    static LenientString find(const JsonNode &object, const QString &key);

    bool operator==(const LenientString &) const = default;
};

} // namespace tonearm
