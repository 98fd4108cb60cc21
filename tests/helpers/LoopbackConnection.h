// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "helpers/LoopbackRequest.h"
#include "helpers/LoopbackResponse.h"

#include <QObject>
#include <QTcpSocket>

#include <functional>

namespace tonearm::test {

/// One client of a LoopbackServer: reads its requests one after the other and answers each.
class LoopbackConnection : public QObject
{
    Q_OBJECT

public:
    using Handler = std::function<LoopbackResponse(const LoopbackRequest &)>;

    /// Takes the socket over, and goes when that is disconnected.
    LoopbackConnection(QTcpSocket *socket, Handler handler, QObject *parent);

private:
    void readRequest();
    void send();
    void sendPiece();
    void finish();

    QTcpSocket *m_socket;
    Handler m_handler;
    QByteArray m_received;
    bool m_isAnswering = false;
    LoopbackResponse m_response;
    QByteArray m_unsent;
};

} // namespace tonearm::test
