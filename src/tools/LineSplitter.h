// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

#include <functional>

namespace tonearm {

/// Cuts a stream of bytes into lines. A carriage return and a line feed each end a line, so that
/// progress lines that overwrite themselves arrive one at a time. Empty lines and lines that aren't
/// valid UTF-8 are left out. Without a callback nothing happens.
class LineSplitter
{
public:
    using Callback = std::function<void(const QString &)>;

    explicit LineSplitter(Callback onLine);

    void add(QByteArrayView chunk);

    /// Delivers what is left after the last line end.
    void finish();

private:
    void deliver(QByteArrayView line) const;

    Callback m_onLine;
    QByteArray m_pending;
};

} // namespace tonearm
