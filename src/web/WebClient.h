// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "support/SerialExecutor.h"
#include "web/RequestThrottle.h"
#include "web/ServiceJson.h"
#include "web/ServiceURL.h"
#include "web/WebSession.h"

#include <QCoroTask>

#include <stop_token>
#include <type_traits>
#include <utility>

namespace tonearm {

/// Asks one JSON service and keeps to its rate limit. There is one for each service in the program: the
/// limit counts for all that is asked of it. Replies are read on the client's own thread.
class WebClient
{
public:
    /// Who is asked and how.
    struct Service
    {
        MetadataSource source;
        /// The address in front of every path, without a slash at its end: "https://musicbrainz.org".
        QString host;
        QString userAgent;
    };

    /// The session has to outlive the client.
    WebClient(WebSession &session, Service service, RequestThrottle throttle);

    /// Asks for a path and reads the reply with `read`, a function that takes the document's JsonNode
    /// and runs on the client's thread; it has to own all that it touches. Callable from any thread with
    /// an event loop, several at once; they go out in the order of the calls.
    ///
    /// Throws MetadataServiceError, or CancellationError as soon as a stop is requested.
    template <typename Read>
    auto get(QStringList path, QList<QueryPair> query, Read read, std::stop_token stop)
        -> QCoro::Task<std::invoke_result_t<Read, const JsonNode &>>
    {
        const QUrl url = serviceURL(m_service.host, path, query);
        const auto ask = [this, url, read,
                          stop]() -> QCoro::Task<std::invoke_result_t<Read, const JsonNode &>> {
            const QByteArray body = co_await send(url, stop);
            co_return readServiceJson(body, m_service.source, read);
        };
        co_return co_await m_executor.run(ask);
    }

private:
    QCoro::Task<QByteArray> send(QUrl url, std::stop_token stop);

    WebSession &m_session;
    Service m_service;
    RequestThrottle m_throttle;
    // Last: it goes first, and waits for the operations that use what stands above.
    SerialExecutor m_executor;
};

} // namespace tonearm
