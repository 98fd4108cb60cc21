// SPDX-License-Identifier: GPL-3.0-or-later
#include "Fuzz.h"

#include "web/Gzip.h"

#include <cstdlib>

// However much it would unpack to, no more comes out than a byte beyond the limit.
void tonearm::fuzz::tryBytes(const QByteArray &bytes)
{
    constexpr qint64 limit = 100000;
    const std::optional<QByteArray> unpacked = unpackedGzip(bytes, limit);
    if (unpacked && unpacked->size() > limit + 1)
        std::abort();
}
