// SPDX-License-Identifier: GPL-3.0-or-later
#include "web/Transfer.h"

#include "support/Cancellation.h"
#include "web/Gzip.h"

#include <QCoroFuture>

#include <utility>

namespace tonearm {

Transfer::Transfer(std::unique_ptr<QNetworkReply> reply, qint64 bodyLimit)
    : m_bodyLimit(bodyLimit)
    , m_reply(std::move(reply))
{
    QNetworkReply *const source = m_reply.get();
    m_end.start();
    QObject::connect(source, &QNetworkReply::requestSent, source, [this] { countRequest(); });
    QObject::connect(source, &QNetworkReply::readyRead, source, [this] { takeBytes(); });
    QObject::connect(source, &QNetworkReply::finished, source, [this] { m_end.finish(); });
    if (source->isFinished())
        m_end.finish();
}

Transfer::~Transfer()
{
    m_reply->abort();
}

QCoro::Task<> Transfer::end(std::stop_token stop)
{
    // The reply, too many bytes and a stop request all end the wait; those after the first find it ended.
    const std::stop_callback onStop(stop, [this] { m_end.finish(); });
    co_await m_end.future();
    throwIfCancelled(stop);
    takeBytes();
    unpack();
}

void Transfer::countRequest()
{
    // When a server hangs up Qt asks it again by itself, and may then take parts of replies for a whole.
    if (++m_sentRequests > 1)
        m_end.finish();
}

void Transfer::takeBytes()
{
    // A timeout closes it.
    if (m_isTooLarge || !m_reply->isOpen())
        return;
    m_body += m_reply->readAll();
    m_receivedBytes = m_body.size();
    m_isTooLarge = m_receivedBytes > m_bodyLimit;
    if (m_isTooLarge)
        m_end.finish();
}

void Transfer::unpack()
{
    if (!isPacked() || m_isTooLarge || m_body.isEmpty())
        return;
    const std::optional<QByteArray> unpacked = unpackedGzip(std::exchange(m_body, {}), m_bodyLimit);
    m_isDamaged = !unpacked;
    m_body = unpacked.value_or(QByteArray());
    m_isTooLarge = m_body.size() > m_bodyLimit;
}

bool Transfer::isPacked() const
{
    return header("Content-Encoding").toLower() == "gzip";
}

bool Transfer::isKnownWhole() const
{
    return isPacked() || m_reply->hasRawHeader("Content-Length");
}

bool Transfer::isCutOff() const
{
    const qint64 length = header("Content-Length").toLongLong();
    return m_sentRequests > 1 || (!m_isTooLarge && m_receivedBytes < length);
}

TransferOutcome Transfer::outcome() const
{
    const QVariant status = m_reply->attribute(QNetworkRequest::HttpStatusCodeAttribute);
    return {.error = m_reply->error(),
            .errorText = m_reply->errorString(),
            .status = status.isValid() ? std::optional(status.toInt()) : std::nullopt,
            .isCutOff = isCutOff(),
            .bodyLimit = m_bodyLimit,
            .isTooLarge = m_isTooLarge,
            .isDamaged = m_isDamaged};
}

} // namespace tonearm
