// SPDX-License-Identifier: GPL-3.0-or-later
#include "disc/StallWatch.h"

#include <algorithm>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

// A stall closer than this to the end of the audio is blamed on what lies behind it.
constexpr qint64 boundaryBytes = 401 * discFrameBytes;

} // namespace

OutputGrowth::OutputGrowth(StallTimes times)
    : m_times(times)
{
}

bool OutputGrowth::isStalledAt(qint64 size)
{
    if (size > m_lastSize) {
        m_lastSize = size;
        m_stalled = {};
        return false;
    }
    m_stalled += m_times.poll;
    return m_stalled >= m_times.patience;
}

void StallWatch::declareStalled(qint64 bytes)
{
    const std::lock_guard guard(m_lock);
    m_bytes = bytes;
}

std::optional<qint64> StallWatch::bytes() const
{
    const std::lock_guard guard(m_lock);
    return m_bytes;
}

QString stallMessage(const DiscTrack &track, qint64 bytes, qint64 expectedBytes)
{
    const qint64 remainder = std::max(qint64{0}, expectedBytes - bytes);
    const QString framesLeft = QString::number(remainder / discFrameBytes);
    if (track.precedesDataSession && remainder < boundaryBytes) {
        return u"Secure reading stopped %1 frames from the end of the last audio track, where the data "
               "session on an enhanced CD begins. That boundary is already handled, so this is more likely a "
               "fault with the disc than the layout. Switching secure ripping off in Settings will read it "
               "the ordinary way."_s.arg(framesLeft);
    }
    return u"The drive stopped making progress at %1 of %2 bytes, %3 frames from the end. The disc may be "
           "damaged or dirty. Switching secure ripping off in Settings will read it the ordinary way."_s.arg(
               QString::number(bytes), QString::number(expectedBytes), framesLeft);
}

} // namespace tonearm
