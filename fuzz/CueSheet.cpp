// SPDX-License-Identifier: GPL-3.0-or-later
#include "Fuzz.h"

#include "cddafs/CdText.h"
#include "cddafs/CueSheet.h"

#include <cstdlib>

void tonearm::fuzz::tryBytes(const QByteArray &bytes)
{
    const std::optional<QString> problem = cueSheetProblem(bytes, QStringLiteral("disc.bin"));
    if (problem && problem->isEmpty())
        std::abort();
    (void)titleText(bytes.constData());
}
