// SPDX-License-Identifier: GPL-3.0-or-later
#include "helpers/LoopbackResponse.h"

#include "helpers/Contents.h"

#include <algorithm>
#include <array>

namespace tonearm::test {

namespace {

bool isBodiless(int status)
{
    return status == 204 || status == 304;
}

QByteArray littleEndian(quint32 number)
{
    QByteArray result;
    for (int shift = 0; shift < 32; shift += 8)
        result += static_cast<char>(number >> shift);
    return result;
}

/// The checksum of gzip files (CRC-32 of IEEE 802.3, reflected).
quint32 crc32(const QByteArray &bytes)
{
    constexpr quint32 polynomial = 0xedb88320;
    quint32 sum = 0xffffffff;
    for (const char byte : bytes) {
        sum ^= static_cast<quint8>(byte);
        for (int bit = 0; bit < 8; ++bit)
            sum = (sum >> 1) ^ (sum & 1 ? polynomial : 0);
    }
    return ~sum;
}

QByteArray inChunks(const QByteArray &body, qsizetype size)
{
    QByteArray result;
    for (qsizetype begin = 0; begin < body.size(); begin += size) {
        const QByteArray piece = body.mid(begin, size);
        result += QByteArray::number(piece.size(), 16) + "\r\n" + piece + "\r\n";
    }
    return result;
}

} // namespace

QByteArray gzip(const QByteArray &bytes)
{
    // Qt puts four bytes of length and zlib two of its own before the packed data and four behind them.
    const QByteArray compressed = qCompress(bytes);
    const QByteArray packed =
        bytes.isEmpty() ? QByteArray("\3\0", 2) : compressed.mid(6, compressed.size() - 10);
    constexpr auto head = std::to_array<char>({0x1f, '\x8b', 8, 0, 0, 0, 0, 0, 0, 3});
    return QByteArray(head.data(), head.size()) + packed + littleEndian(crc32(bytes)) +
           littleEndian(static_cast<quint32>(bytes.size()));
}

LoopbackResponse LoopbackResponse::bytes(const QByteArray &contentType, const QByteArray &body)
{
    LoopbackResponse response;
    response.body = body;
    return response.with("Content-Type", contentType);
}

LoopbackResponse LoopbackResponse::json(const QByteArray &body)
{
    return bytes("application/json; charset=utf-8", body);
}

LoopbackResponse LoopbackResponse::html(const QByteArray &body)
{
    return bytes("text/html", body);
}

LoopbackResponse LoopbackResponse::file(const QByteArray &contentType, const QString &path)
{
    return bytes(contentType, readFile(path));
}

LoopbackResponse LoopbackResponse::withStatus(int status)
{
    LoopbackResponse response = html("<html><body>Status " + QByteArray::number(status) + "</body></html>");
    if (isBodiless(status))
        response = {};
    response.status = status;
    return response;
}

LoopbackResponse LoopbackResponse::redirect(int status, const QByteArray &location)
{
    return withStatus(status).with("Location", location);
}

LoopbackResponse LoopbackResponse::silence()
{
    LoopbackResponse response;
    response.hasHead = false;
    return response.stalledAfter(0);
}

LoopbackResponse LoopbackResponse::hangUp()
{
    LoopbackResponse response;
    response.hasHead = false;
    return response.cutAfter(0);
}

LoopbackResponse &LoopbackResponse::with(const QByteArray &name, const QByteArray &value)
{
    headers.append({name, value});
    return *this;
}

LoopbackResponse &LoopbackResponse::after(std::chrono::milliseconds time)
{
    delay = time;
    return *this;
}

LoopbackResponse &LoopbackResponse::inPieces(qsizetype size, std::chrono::milliseconds interval)
{
    pieceSize = size;
    pieceInterval = interval;
    return *this;
}

LoopbackResponse &LoopbackResponse::claiming(qint64 length)
{
    claimedLength = length;
    return *this;
}

LoopbackResponse &LoopbackResponse::chunked()
{
    isChunked = true;
    return *this;
}

LoopbackResponse &LoopbackResponse::gzipped()
{
    body = gzip(body);
    return with("Content-Encoding", "gzip");
}

LoopbackResponse &LoopbackResponse::cutAfter(qsizetype count)
{
    sentBytes = count;
    ending = Ending::closed;
    return *this;
}

LoopbackResponse &LoopbackResponse::resetAfter(qsizetype count)
{
    sentBytes = count;
    ending = Ending::reset;
    return *this;
}

LoopbackResponse &LoopbackResponse::stalledAfter(qsizetype count)
{
    sentBytes = count;
    ending = Ending::stalled;
    return *this;
}

QByteArray LoopbackResponse::headBytes() const
{
    if (!hasHead)
        return {};
    QByteArray head = "HTTP/1.1 " + QByteArray::number(status) + " Loopback\r\n";
    for (const auto &[name, value] : headers)
        head += name + ": " + value + "\r\n";
    if (ending == Ending::closedAsAsked)
        head += "Connection: close\r\n";
    if (isChunked)
        head += "Transfer-Encoding: chunked\r\n";
    else if (!isBodiless(status))
        head += "Content-Length: " + QByteArray::number(claimedLength.value_or(body.size())) + "\r\n";
    return head + "\r\n";
}

QByteArray LoopbackResponse::bodyBytes() const
{
    const QByteArray sent = body.left(sentBytes.value_or(body.size()));
    if (!isChunked)
        return sent;
    const QByteArray end = ending == Ending::regular || ending == Ending::closedAsAsked ? "0\r\n\r\n" : "";
    return inChunks(sent, pieceSize > 0 ? pieceSize : std::max<qsizetype>(sent.size(), 1)) + end;
}

} // namespace tonearm::test
