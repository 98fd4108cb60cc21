// SPDX-License-Identifier: GPL-3.0-or-later
#include "web/WebSession.h"

#include "support/Cancellation.h"
#include "web/Redirect.h"
#include "web/SystemProxies.h"
#include "web/Transfer.h"

#include <QNetworkAccessManager>
#include <QNetworkRequest>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

constexpr int maximumRedirects = 20;

// Whether the network would read a file or the URL itself instead of asking a server. A service's reply
// may name such a place; it is never opened.
bool isLocal(const QUrl &url)
{
    const QString scheme = url.scheme();
    return url.isLocalFile() || scheme.isEmpty() || scheme == "qrc"_L1 || scheme == "data"_L1;
}

QNetworkRequest networkRequest(const QUrl &url, const WebRequest &request, std::chrono::milliseconds timeout)
{
    QNetworkRequest result(url);
    result.setHeader(QNetworkRequest::UserAgentHeader, request.userAgent);
    result.setRawHeader("Accept"_qba, request.accept.toLatin1());
    // Keeps Qt from unpacking: it would take a packed reply that is cut off for a whole one.
    result.setRawHeader("Accept-Encoding"_qba, "gzip"_qba);
    // A kept connection may have died meanwhile; only asking a second time would tell.
    result.setRawHeader("Connection"_qba, "close"_qba);
    result.setAttribute(QNetworkRequest::Http2AllowedAttribute, false);
    result.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::ManualRedirectPolicy);
    for (const auto attribute :
         {QNetworkRequest::CookieLoadControlAttribute, QNetworkRequest::CookieSaveControlAttribute,
          QNetworkRequest::AuthenticationReuseAttribute})
        result.setAttribute(attribute, QNetworkRequest::Manual);
    result.setTransferTimeout(static_cast<int>(timeout.count()));
    return result;
}

// Where to go on; nothing if the transfer has brought what was asked for. Throws if it failed.
std::optional<QUrl> nextPlace(const QUrl &asked, const Transfer &transfer, MetadataSource source)
{
    const TransferOutcome outcome = transfer.outcome();
    const auto target = outcome.error == QNetworkReply::NoError && !outcome.isCutOff
                            ? redirectTarget(asked, outcome.status.value_or(0), transfer.header("Location"))
                            : std::nullopt;
    if (!target) {
        if (const auto failure = failureOf(outcome, source))
            throw *failure;
        return std::nullopt;
    }
    if (const auto refusal = redirectRefusal(asked, *target))
        throw MetadataServiceError::networkFailure(source, *refusal);
    return target;
}

} // namespace

WebSession::WebSession(std::chrono::milliseconds timeout)
    : m_timeout(timeout)
    , m_executor(u"web"_s)
{
}

WebSession::~WebSession() = default;

QCoro::Task<WebReply> WebSession::data(WebRequest request, MetadataSource source, qint64 bodyLimit,
                                       std::stop_token stop)
{
    const auto follow = [this, request, source, bodyLimit, stop] {
        return followRedirects(request, source, bodyLimit, stop);
    };
    co_return co_await m_executor.run(follow);
}

QCoro::Task<WebReply> WebSession::followRedirects(WebRequest request, MetadataSource source, qint64 bodyLimit,
                                                  std::stop_token stop)
{
    throwIfCancelled(stop);
    if (isLocal(request.url))
        throw *failureOf(TransferOutcome(), source);
    QUrl url = request.url;
    for (int redirects = 0; redirects <= maximumRedirects; ++redirects) {
        const QNetworkRequest asked = networkRequest(url, request, m_timeout);
        Transfer transfer(std::unique_ptr<QNetworkReply>(manager().get(asked)), bodyLimit);
        co_await transfer.end(stop);
        const std::optional<QUrl> target = nextPlace(url, transfer, source);
        if (!target)
            co_return WebReply{.body = transfer.body(),
                               .contentType = QString::fromLatin1(transfer.header("Content-Type")),
                               .isKnownWhole = transfer.isKnownWhole()};
        url = *target;
    }
    throw MetadataServiceError::networkFailure(source, u"Too many redirects."_s);
}

QNetworkAccessManager &WebSession::manager()
{
    if (!m_manager) {
        m_manager = new QNetworkAccessManager;
        m_manager->setProxyFactory(new SystemProxies);
        QObject::connect(QThread::currentThread(), &QThread::finished, m_manager, &QObject::deleteLater);
    }
    return *m_manager;
}

} // namespace tonearm
