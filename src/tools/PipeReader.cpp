// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/PipeReader.h"

#include <utility>

namespace tonearm {

void PipeReader::add(FileDescriptor readEnd, std::function<void(QByteArrayView)> onChunk)
{
    m_sources.push_back({readEnd.number(), std::move(onChunk)});
    m_readEnds.push_back(std::move(readEnd));
}

void PipeReader::readToEnd() noexcept
{
    try {
        tonearm::readToEnd(m_sources);
    } catch (...) {
        m_failure = std::current_exception();
        m_readEnds.clear();
    }
}

void PipeReader::throwIfFailed() const
{
    if (m_failure)
        std::rethrow_exception(m_failure);
}

} // namespace tonearm
