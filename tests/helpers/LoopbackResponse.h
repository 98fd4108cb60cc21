// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

#include <chrono>
#include <optional>
#include <utility>

namespace tonearm::test {

/// What a LoopbackServer answers, and how badly: `LoopbackResponse::json("{}").after(20ms).cutAfter(1)`.
struct LoopbackResponse
{
    enum class Ending {
        /// As HTTP has it; the connection serves further requests.
        regular,
        closed,
        /// Regular, after which the client wants no more.
        closedAsAsked,
        /// Broken off with a TCP reset.
        reset,
        /// Left open without another word.
        stalled
    };

    int status = 200;
    QList<std::pair<QByteArray, QByteArray>> headers = {};
    QByteArray body = {};
    /// Whether a head is sent at all.
    bool hasHead = true;
    /// Before the first byte.
    std::chrono::milliseconds delay{0};
    /// The body goes out in pieces of so many bytes with a pause between them; 0 for all at once.
    qsizetype pieceSize = 0;
    std::chrono::milliseconds pieceInterval{0};
    /// The header Content-Length; the body's size if absent.
    std::optional<qint64> claimedLength = {};
    bool isChunked = false;
    /// How much of the body goes out before the ending; all of it if absent.
    std::optional<qsizetype> sentBytes = {};
    Ending ending = Ending::regular;

    static LoopbackResponse bytes(const QByteArray &contentType, const QByteArray &body);
    static LoopbackResponse json(const QByteArray &body);
    static LoopbackResponse html(const QByteArray &body);
    /// The bytes of a file; fails the test if it can't be read.
    static LoopbackResponse file(const QByteArray &contentType, const QString &path);
    /// A status with a short page of HTML, as servers send it; 204 and 304 come without.
    static LoopbackResponse withStatus(int status);
    static LoopbackResponse redirect(int status, const QByteArray &location);
    /// Takes the request and never says anything.
    static LoopbackResponse silence();
    /// Takes the request and closes the connection.
    static LoopbackResponse hangUp();

    LoopbackResponse &with(const QByteArray &name, const QByteArray &value);
    LoopbackResponse &after(std::chrono::milliseconds time);
    LoopbackResponse &inPieces(qsizetype size, std::chrono::milliseconds interval);
    LoopbackResponse &claiming(qint64 length);
    LoopbackResponse &chunked();
    /// Packs the body and says so in the head.
    LoopbackResponse &gzipped();
    LoopbackResponse &cutAfter(qsizetype count);
    LoopbackResponse &resetAfter(qsizetype count);
    LoopbackResponse &stalledAfter(qsizetype count);

    /// The head's bytes, the empty line included; nothing without a head.
    QByteArray headBytes() const;

    /// The body's bytes as they go out, cut off and in chunks where that is asked for.
    QByteArray bodyBytes() const;
};

/// The bytes as a gzip file.
QByteArray gzip(const QByteArray &bytes);

} // namespace tonearm::test
