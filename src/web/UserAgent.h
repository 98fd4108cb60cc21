// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <optional>

namespace tonearm {

/// A page on which the operators of a service can reach the makers of this program. Set when building,
/// by TONEARM_CONTACT_LINK.
QString contactLink();

/// The text by which the program names itself to a service: "Tonearm/<version>", with the contact
/// behind it if one is given. An empty version counts as "1.0".
QString userAgent(const QString &version, const std::optional<QString> &contact = std::nullopt);

} // namespace tonearm
