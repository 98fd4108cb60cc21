// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>

namespace tonearm {

/// How far a job on a disc is, from 0 to 1, in one track's stages: each track has an equal part of the
/// whole, of which reading takes most.
class DiscJobProgress
{
public:
    DiscJobProgress(qsizetype index, qsizetype count, bool isVerifying)
        : m_part(1.0 / double(count))
        , m_base(m_part * double(index))
        , m_reading(isVerifying ? 0.45 : 0.85)
        , m_verifying(isVerifying ? 0.45 : 0)
        , m_encoding(isVerifying ? 0.10 : 0.15)
    {
    }

    /// Each takes the fraction of its own stage.
    double reading(double fraction) const { return m_base + m_part * m_reading * fraction; }

    double verifying(double fraction) const { return m_base + m_part * (m_reading + fraction * m_verifying); }

    double encoding(double fraction) const
    {
        return m_base + m_part * (fraction * m_encoding + m_verifying + m_reading);
    }

private:
    double m_part;
    double m_base;
    double m_reading;
    double m_verifying;
    double m_encoding;
};

} // namespace tonearm
