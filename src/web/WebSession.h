// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "support/SerialExecutor.h"
#include "workflow/records/MetadataSource.h"

#include <QByteArray>
#include <QString>
#include <QUrl>

#include <QCoroTask>

#include <chrono>
#include <stop_token>

class QNetworkAccessManager;

namespace tonearm {

/// The most that is taken of a reply, packed or unpacked, so that no service can fill the memory.
inline constexpr qint64 maximumJsonBytes = 32'000'000;
inline constexpr qint64 maximumPictureBytes = 64'000'000;

/// A GET request.
struct WebRequest
{
    QUrl url;
    /// The two headers' texts.
    QString userAgent;
    QString accept;

    bool operator==(const WebRequest &) const = default;
};

struct WebReply
{
    QByteArray body;
    /// The header "Content-Type" as it came; empty if there was none.
    QString contentType;
    /// Whether a reply that had broken off would have been noticed: its length was known, or its checksum.
    bool isKnownWhole = false;

    bool operator==(const WebReply &) const = default;
};

/// Fetches from the web, on a thread of its own. The application has one.
///
/// Follows redirects, but none from https to http; uses the system's proxies; keeps no cookies and no
/// cache and sends no credentials.
class WebSession
{
public:
    /// `timeout` is how long a transfer may go without a single byte.
    explicit WebSession(std::chrono::milliseconds timeout = std::chrono::seconds(60));
    ~WebSession();
    WebSession(const WebSession &) = delete;
    WebSession &operator=(const WebSession &) = delete;

    /// Fetches a URL whole. Callable from any thread with an event loop, several at once.
    ///
    /// Throws MetadataServiceError: for a status other than 200 to 299 by its number, malformedResponse
    /// for a URL that isn't fetched over HTTP, networkFailure for a transfer that fails, stalls, ends
    /// early or brings more than `bodyLimit` bytes. `source` is the service that errors name.
    /// A body in chunks that is neither packed nor of a length told in advance may come back cut off: Qt 6.4
    /// doesn't always notice that its last chunk is missing. Who reads it has to see that it ends well.
    ///
    /// Throws CancellationError at once when a stop is requested; the transfer is aborted.
    QCoro::Task<WebReply> data(WebRequest request, MetadataSource source, qint64 bodyLimit,
                               std::stop_token stop);

private:
    QCoro::Task<WebReply> followRedirects(WebRequest request, MetadataSource source, qint64 bodyLimit,
                                          std::stop_token stop);
    QNetworkAccessManager &manager();

    std::chrono::milliseconds m_timeout;
    // Lives on the executor's thread and goes with it.
    QNetworkAccessManager *m_manager = nullptr;
    // Last: it goes first, and waits for the operations that use what stands above.
    SerialExecutor m_executor;
};

} // namespace tonearm
