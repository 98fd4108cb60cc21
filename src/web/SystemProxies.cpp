// SPDX-License-Identifier: GPL-3.0-or-later
#include "web/SystemProxies.h"

#include <QHostAddress>
#include <QString>

namespace tonearm {

using namespace Qt::StringLiterals;

QList<QNetworkProxy> SystemProxies::queryProxy(const QNetworkProxyQuery &query)
{
    const QString host = query.peerHostName();
    if (host == "localhost"_L1 || QHostAddress(host).isLoopback())
        return {QNetworkProxy::NoProxy};
    return systemProxyForQuery(query);
}

} // namespace tonearm
