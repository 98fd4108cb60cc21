// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArrayView>

#include <functional>
#include <vector>

namespace tonearm {

/// The read end of a pipe, as a descriptor that stays the caller's, and what takes its bytes.
struct PipeSource
{
    int readEnd = -1;
    std::function<void(QByteArrayView)> onChunk;
};

/// Blocks until every one of the pipes has reached its end, and hands each chunk on as it comes. The
/// pipes are read side by side, so that who writes to several never stalls on one of them.
///
/// Throws std::system_error if the system fails to read. The caller closes the read ends then, so that
/// the writer isn't stalled for ever.
void readToEnd(const std::vector<PipeSource> &sources);

} // namespace tonearm
