// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "web/TransferOutcome.h"

#include <QByteArray>
#include <QNetworkReply>
#include <QPromise>

#include <QCoroTask>

#include <memory>
#include <stop_token>

namespace tonearm {

/// One request on its way and what it brings. Confined to the reply's thread; destruction aborts what is
/// still under way.
class Transfer
{
public:
    /// The network is expected to follow no redirects and to unpack nothing.
    Transfer(std::unique_ptr<QNetworkReply> reply, qint64 bodyLimit);
    ~Transfer();
    Transfer(const Transfer &) = delete;
    Transfer &operator=(const Transfer &) = delete;

    /// Suspends until the reply has come or failed, or has brought more than the limit, packed or
    /// unpacked. Throws CancellationError as soon as a stop is requested. To be called once.
    QCoro::Task<> end(std::stop_token stop);

    TransferOutcome outcome() const;

    /// What came, unpacked.
    const QByteArray &body() const { return m_body; }

    /// Whether the reply told its length, or came packed with a checksum.
    bool isKnownWhole() const;

    QByteArray header(const char *name) const { return m_reply->rawHeader(name); }

private:
    void countRequest();
    void takeBytes();
    void unpack();
    bool isPacked() const;
    bool isCutOff() const;

    qint64 m_bodyLimit;
    QByteArray m_body;
    qint64 m_receivedBytes = 0;
    int m_sentRequests = 0;
    bool m_isTooLarge = false;
    bool m_isDamaged = false;
    QPromise<void> m_end;
    // Last: as it goes it may still tell of its end.
    std::unique_ptr<QNetworkReply> m_reply;
};

} // namespace tonearm
