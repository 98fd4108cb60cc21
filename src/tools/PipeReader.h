// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "support/FileDescriptor.h"
#include "tools/PipeReading.h"

#include <QByteArrayView>

#include <exception>
#include <functional>
#include <vector>

namespace tonearm {

/// What a thread of its own can read a child's pipes with. A failure is kept for whoever waits for the
/// child, and closes the pipes, so that the child doesn't stall on them for ever.
class PipeReader
{
public:
    /// Takes over the read end of one more pipe.
    void add(FileDescriptor readEnd, std::function<void(QByteArrayView)> onChunk);

    /// Blocks until every pipe has reached its end, or reading has failed.
    void readToEnd() noexcept;

    /// Throws what readToEnd() met.
    void throwIfFailed() const;

private:
    std::vector<FileDescriptor> m_readEnds;
    std::vector<PipeSource> m_sources;
    std::exception_ptr m_failure;
};

} // namespace tonearm
