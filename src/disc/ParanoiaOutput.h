// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>

#include <mutex>
#include <optional>

namespace tonearm {

/// What in cd-paranoia's messages sounds like trouble: the last three such lines, or nothing.
std::optional<QString> complaintsIn(const QStringList &lines);

/// The lines that cd-paranoia writes to stderr during one read. Thread-safe.
class ParanoiaOutput
{
public:
    void append(const QString &line);

    /// complaintsIn for the lines so far.
    std::optional<QString> complaints() const;

private:
    mutable std::mutex m_lock;
    QStringList m_lines;
};

} // namespace tonearm
