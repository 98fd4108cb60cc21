// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QCollator>
#include <QString>

namespace tonearm {

/// The order in which people expect names: by the user's language, numbers by their value, regardless
/// of case. Reentrant, not thread-safe: each user makes its own.
class NaturalOrder
{
public:
    NaturalOrder();

    /// Negative, zero or positive, as the first stands before, beside or after the second.
    int compare(const QString &first, const QString &second) const;

    /// For std::sort and its like.
    bool operator()(const QString &first, const QString &second) const { return compare(first, second) < 0; }

private:
    QCollator m_collator;
};

} // namespace tonearm
