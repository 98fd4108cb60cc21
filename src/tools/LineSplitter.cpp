// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/LineSplitter.h"

#include "support/Text.h"

#include <algorithm>
#include <utility>

namespace tonearm {

LineSplitter::LineSplitter(Callback onLine)
    : m_onLine(std::move(onLine))
{
}

void LineSplitter::add(QByteArrayView chunk)
{
    if (!m_onLine)
        return;
    const auto isLineEnd = [](char byte) { return byte == '\r' || byte == '\n'; };
    auto begin = chunk.begin();
    for (auto end = std::find_if(begin, chunk.end(), isLineEnd); end != chunk.end();
         end = std::find_if(begin, chunk.end(), isLineEnd)) {
        m_pending.append(QByteArrayView(begin, end));
        deliver(m_pending);
        m_pending.clear();
        begin = end + 1;
    }
    m_pending.append(QByteArrayView(begin, chunk.end()));
}

void LineSplitter::finish()
{
    deliver(m_pending);
    m_pending.clear();
}

void LineSplitter::deliver(QByteArrayView line) const
{
    const std::optional<QString> text = decodedUtf8(line);
    if (text && !text->isEmpty())
        m_onLine(*text);
}

} // namespace tonearm
