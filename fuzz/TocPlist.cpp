// SPDX-License-Identifier: GPL-3.0-or-later
#include "Fuzz.h"

#include "disc/DiscError.h"
#include "disc/DiscTOC.h"

#include <cstdlib>

void tonearm::fuzz::tryBytes(const QByteArray &bytes)
{
    try {
        if (DiscTOC::parse(bytes).discID().size() != 28)
            std::abort();
    } catch (const DiscError &error) {
        if (error.description().isEmpty())
            std::abort();
    }
}
