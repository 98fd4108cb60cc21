// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "helpers/LoopbackRequest.h"
#include "helpers/LoopbackResponse.h"
#include "helpers/TestCertificate.h"

#include <QList>
#include <QString>
#include <QThread>
#include <QUrl>

#include <functional>
#include <memory>
#include <optional>

namespace tonearm::test {

/// A real HTTP server on 127.0.0.1 with a port of its own, on a thread of its own, that answers as it is
/// told and keeps what it was asked. What nobody told it to answer gets a 404. Callable from any thread.
class LoopbackServer
{
public:
    /// Makes an answer; runs on the server's thread.
    using Handler = std::function<LoopbackResponse(const LoopbackRequest &)>;

    /// With a certificate it speaks https.
    explicit LoopbackServer(const std::optional<TestCertificate> &certificate = std::nullopt);
    ~LoopbackServer();
    LoopbackServer(const LoopbackServer &) = delete;
    LoopbackServer &operator=(const LoopbackServer &) = delete;

    /// "http://127.0.0.1:<port>", the base of its URLs.
    QString origin() const { return m_origin; }

    QUrl url(const QString &target) const { return QUrl(m_origin + target); }

    /// Answers a path, percent-encoded and without a query, always in the same way.
    void answer(const QByteArray &path, const LoopbackResponse &response);

    /// Answers a path with one response after the other; the last one stays.
    void answerInTurn(const QByteArray &path, const QList<LoopbackResponse> &responses);

    /// Answers everything, in place of what it was told for single paths.
    void answerWith(Handler handler);

    /// What it was asked so far, in the order of arrival.
    QList<LoopbackRequest> requests() const;

    /// How many clients have connected, and how many still are.
    qsizetype connectionCount() const;
    qsizetype openConnectionCount() const;

private:
    class Listener;
    struct Script;

    std::shared_ptr<Script> m_script;
    QThread m_thread;
    QString m_origin;
};

} // namespace tonearm::test
