// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QList>

#include <chrono>
#include <utility>

namespace tonearm::test {

/// What a LoopbackServer was asked.
struct LoopbackRequest
{
    QByteArray method;
    /// As it came over the wire, percent-encoded.
    QByteArray target;
    QList<std::pair<QByteArray, QByteArray>> headers;
    /// When the head was complete.
    std::chrono::steady_clock::time_point arrival;

    /// The target's part before the "?" and the one behind it.
    QByteArray path() const { return target.left(queryMark()); }

    QByteArray query() const { return target.mid(queryMark() + 1); }

    bool hasHeader(const QByteArray &name) const { return !header(name).isNull(); }

    /// A header's value regardless of the name's case; a null array if there is none.
    QByteArray header(const QByteArray &name) const
    {
        for (const auto &[key, value] : headers) {
            if (key.compare(name, Qt::CaseInsensitive) == 0)
                return value.isNull() ? QByteArray("") : value;
        }
        return {};
    }

private:
    qsizetype queryMark() const
    {
        const qsizetype mark = target.indexOf('?');
        return mark < 0 ? target.size() : mark;
    }
};

} // namespace tonearm::test
