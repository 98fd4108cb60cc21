// SPDX-License-Identifier: GPL-3.0-or-later
#include "web/Redirect.h"

namespace tonearm {

using namespace Qt::StringLiterals;

std::optional<QUrl> redirectTarget(const QUrl &asked, int status, const QByteArray &location)
{
    switch (status) {
    case 301:
    case 302:
    case 303:
    case 307:
    case 308:
        break;
    default:
        return std::nullopt;
    }
    if (location.isEmpty())
        return std::nullopt;
    return asked.resolved(QUrl::fromEncoded(location));
}

std::optional<QString> redirectRefusal(const QUrl &from, const QUrl &target)
{
    const bool isSecure = target.scheme() == "https"_L1;
    if (target.host().isEmpty() || (!isSecure && target.scheme() != "http"_L1))
        return u"The service redirects to an address that isn't on the web."_s;
    if (from.scheme() == "https"_L1 && !isSecure)
        return u"The service redirects to an address without encryption."_s;
    return std::nullopt;
}

} // namespace tonearm
