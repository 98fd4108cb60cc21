// SPDX-License-Identifier: GPL-3.0-or-later
#include "helpers/LoopbackServer.h"

#include "helpers/LoopbackConnection.h"

#include <QHash>
#include <QSslSocket>
#include <QTcpServer>

#include <mutex>
#include <utility>

namespace tonearm::test {

using namespace Qt::StringLiterals;

/// What the server has been told and what it has seen.
struct LoopbackServer::Script
{
    mutable std::mutex mutex;
    QHash<QByteArray, QList<LoopbackResponse>> responses;
    Handler handler;
    QList<LoopbackRequest> requests;
    qsizetype connectionCount = 0;
    qsizetype openConnectionCount = 0;

    LoopbackResponse respond(const LoopbackRequest &request)
    {
        std::unique_lock lock(mutex);
        requests.append(request);
        if (handler) {
            const Handler answering = handler;
            lock.unlock(); // it may ask the server something
            return answering(request);
        }
        QList<LoopbackResponse> &queue = responses[request.path()];
        if (queue.isEmpty())
            return LoopbackResponse::withStatus(404);
        return queue.size() > 1 ? queue.takeFirst() : queue.first();
    }
};

class LoopbackServer::Listener : public QTcpServer
{
public:
    Listener(std::shared_ptr<Script> script, std::optional<TestCertificate> certificate)
        : m_script(std::move(script))
        , m_certificate(std::move(certificate))
    {
    }

protected:
    void incomingConnection(qintptr descriptor) override
    {
        count(+1);
        QTcpSocket *socket = openedSocket(descriptor);
        const auto respond = [script = m_script](const LoopbackRequest &request) {
            return script->respond(request);
        };
        auto *connection = new LoopbackConnection(socket, respond, this);
        connect(connection, &QObject::destroyed, this, [this] { count(-1); });
    }

private:
    QTcpSocket *openedSocket(qintptr descriptor)
    {
        if (!m_certificate) {
            auto *plain = new QTcpSocket;
            plain->setSocketDescriptor(descriptor);
            return plain;
        }
        auto *encrypted = new QSslSocket;
        encrypted->setSocketDescriptor(descriptor);
        encrypted->setLocalCertificate(m_certificate->certificate);
        encrypted->setPrivateKey(m_certificate->key);
        encrypted->startServerEncryption();
        return encrypted;
    }

    void count(int change)
    {
        const std::lock_guard lock(m_script->mutex);
        m_script->openConnectionCount += change;
        if (change > 0)
            m_script->connectionCount += change;
    }

    std::shared_ptr<Script> m_script;
    std::optional<TestCertificate> m_certificate;
};

LoopbackServer::LoopbackServer(const std::optional<TestCertificate> &certificate)
    : m_script(std::make_shared<Script>())
{
    auto *listener = new Listener(m_script, certificate);
    listener->moveToThread(&m_thread);
    QObject::connect(&m_thread, &QThread::finished, listener, &QObject::deleteLater);
    m_thread.setObjectName(u"loopback"_s);
    m_thread.start();

    quint16 port = 0;
    const auto listen = [&] {
        if (listener->listen(QHostAddress::LocalHost))
            port = listener->serverPort();
    };
    QMetaObject::invokeMethod(listener, listen, Qt::BlockingQueuedConnection);
    if (port == 0)
        qFatal("There is no port to listen on.");
    m_origin = u"%1://127.0.0.1:%2"_s.arg(certificate ? u"https"_s : u"http"_s).arg(port);
}

LoopbackServer::~LoopbackServer()
{
    m_thread.quit();
    m_thread.wait();
}

void LoopbackServer::answer(const QByteArray &path, const LoopbackResponse &response)
{
    answerInTurn(path, {response});
}

void LoopbackServer::answerInTurn(const QByteArray &path, const QList<LoopbackResponse> &responses)
{
    const std::lock_guard lock(m_script->mutex);
    m_script->responses[path] = responses;
}

void LoopbackServer::answerWith(Handler handler)
{
    const std::lock_guard lock(m_script->mutex);
    m_script->handler = std::move(handler);
}

QList<LoopbackRequest> LoopbackServer::requests() const
{
    const std::lock_guard lock(m_script->mutex);
    return m_script->requests;
}

qsizetype LoopbackServer::connectionCount() const
{
    const std::lock_guard lock(m_script->mutex);
    return m_script->connectionCount;
}

qsizetype LoopbackServer::openConnectionCount() const
{
    const std::lock_guard lock(m_script->mutex);
    return m_script->openConnectionCount;
}

} // namespace tonearm::test
