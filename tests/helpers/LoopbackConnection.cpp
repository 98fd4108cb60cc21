// SPDX-License-Identifier: GPL-3.0-or-later
#include "helpers/LoopbackConnection.h"

#include <QTimer>

#include <sys/socket.h>

#include <utility>

namespace tonearm::test {

namespace {

constexpr QByteArrayView headEnd = "\r\n\r\n";

LoopbackRequest parsed(const QByteArray &head)
{
    LoopbackRequest request;
    request.arrival = std::chrono::steady_clock::now();
    const QList<QByteArray> lines = head.split('\n');
    const QList<QByteArray> words = lines.first().trimmed().split(' ');
    request.method = words.value(0);
    request.target = words.value(1);
    for (const QByteArray &line : lines.sliced(1)) {
        const qsizetype colon = line.indexOf(':');
        request.headers.append({line.left(colon).trimmed(), line.mid(colon + 1).trimmed()});
    }
    return request;
}

void resetConnection(QTcpSocket &socket)
{
    const linger none = {.l_onoff = 1, .l_linger = 0};
    ::setsockopt(static_cast<int>(socket.socketDescriptor()), SOL_SOCKET, SO_LINGER, &none, sizeof none);
    socket.abort();
}

} // namespace

LoopbackConnection::LoopbackConnection(QTcpSocket *socket, Handler handler, QObject *parent)
    : QObject(parent)
    , m_socket(socket)
    , m_handler(std::move(handler))
{
    m_socket->setParent(this);
    // So that each piece goes out by itself.
    m_socket->setSocketOption(QAbstractSocket::LowDelayOption, 1);
    connect(m_socket, &QTcpSocket::readyRead, this, &LoopbackConnection::readRequest);
    connect(m_socket, &QTcpSocket::disconnected, this, &QObject::deleteLater);
}

void LoopbackConnection::readRequest()
{
    m_received += m_socket->readAll();
    const qsizetype end = m_received.indexOf(headEnd);
    if (m_isAnswering || end < 0)
        return;
    const LoopbackRequest request = parsed(m_received.left(end));
    m_received.remove(0, end + headEnd.size());
    m_isAnswering = true;
    m_response = m_handler(request);
    if (m_response.ending == LoopbackResponse::Ending::regular &&
        request.header("Connection").toLower() == "close")
        m_response.ending = LoopbackResponse::Ending::closedAsAsked;
    QTimer::singleShot(m_response.delay, this, &LoopbackConnection::send);
}

void LoopbackConnection::send()
{
    m_unsent = m_response.bodyBytes();
    m_socket->write(m_response.headBytes());
    sendPiece();
}

void LoopbackConnection::sendPiece()
{
    const qsizetype size = m_response.pieceSize > 0 ? m_response.pieceSize : m_unsent.size();
    m_socket->write(m_unsent.left(size));
    m_unsent.remove(0, size);
    if (m_unsent.isEmpty())
        finish();
    else
        QTimer::singleShot(m_response.pieceInterval, Qt::PreciseTimer, this, &LoopbackConnection::sendPiece);
}

void LoopbackConnection::finish()
{
    switch (m_response.ending) {
    case LoopbackResponse::Ending::regular:
        m_isAnswering = false;
        readRequest();
        break;
    case LoopbackResponse::Ending::closedAsAsked:
    case LoopbackResponse::Ending::closed:
        m_socket->disconnectFromHost();
        break;
    case LoopbackResponse::Ending::reset:
        // What has been written must be out first, or the reset would overtake it.
        m_socket->flush();
        resetConnection(*m_socket);
        break;
    case LoopbackResponse::Ending::stalled:
        break;
    }
}

} // namespace tonearm::test
