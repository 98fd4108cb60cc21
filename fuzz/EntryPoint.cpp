// SPDX-License-Identifier: GPL-3.0-or-later
#include "Fuzz.h"

#include <cstddef>
#include <cstdint>

// Its name and form are libFuzzer's.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) // NOLINT
{
    tonearm::fuzz::tryBytes(QByteArray(reinterpret_cast<const char *>(data), qsizetype(size)));
    return 0;
}
