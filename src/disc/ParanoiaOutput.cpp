// SPDX-License-Identifier: GPL-3.0-or-later
#include "disc/ParanoiaOutput.h"

#include <algorithm>
#include <array>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

bool isComplaint(const QString &line)
{
    static constexpr std::array signs{"option not supported by drive"_L1,
                                      "unable"_L1,
                                      "error"_L1,
                                      "skip"_L1,
                                      "failed"_L1,
                                      "no such"_L1,
                                      "permission"_L1};
    const QString lowerCased = line.toLower();
    return std::any_of(signs.begin(), signs.end(),
                       [&](QLatin1StringView sign) { return lowerCased.contains(sign); });
}

} // namespace

std::optional<QString> complaintsIn(const QStringList &lines)
{
    constexpr qsizetype told = 3;
    QStringList complaints;
    std::copy_if(lines.begin(), lines.end(), std::back_inserter(complaints), isComplaint);
    if (complaints.isEmpty())
        return std::nullopt;
    return complaints.mid(std::max(qsizetype{0}, complaints.size() - told)).join(u' ');
}

void ParanoiaOutput::append(const QString &line)
{
    const std::lock_guard guard(m_lock);
    m_lines.append(line);
}

std::optional<QString> ParanoiaOutput::complaints() const
{
    QStringList lines;
    {
        const std::lock_guard guard(m_lock);
        lines = m_lines;
    }
    return complaintsIn(lines);
}

} // namespace tonearm
