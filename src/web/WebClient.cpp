// SPDX-License-Identifier: GPL-3.0-or-later
#include "web/WebClient.h"

namespace tonearm {

using namespace Qt::StringLiterals;

WebClient::WebClient(WebSession &session, Service service, RequestThrottle throttle)
    : m_session(session)
    , m_service(std::move(service))
    , m_throttle(std::move(throttle))
    , m_executor(displayName(m_service.source))
{
}

QCoro::Task<QByteArray> WebClient::send(QUrl url, std::stop_token stop)
{
    co_await m_throttle.wait(std::nullopt, stop);
    const WebRequest request = {
        .url = url, .userAgent = m_service.userAgent, .accept = u"application/json"_s};
    const WebReply reply = co_await m_session.data(request, m_service.source, maximumJsonBytes, stop);
    co_return reply.body;
}

} // namespace tonearm
