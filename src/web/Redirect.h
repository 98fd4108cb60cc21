// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>
#include <QUrl>

#include <optional>

namespace tonearm {

/// Where a reply sends its asker on to; nothing if it doesn't. `location` is its header "Location" as it
/// came. The target may be a place that mayn't be followed to.
std::optional<QUrl> redirectTarget(const QUrl &asked, int status, const QByteArray &location);

/// Why a redirect isn't followed, a sentence; nothing if it is. Only the web is followed to, and never from
/// https to http.
std::optional<QString> redirectRefusal(const QUrl &from, const QUrl &target);

} // namespace tonearm
