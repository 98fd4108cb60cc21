// SPDX-License-Identifier: GPL-3.0-or-later
#include "Fuzz.h"

#include "encoding/ProgressReporter.h"
#include "tools/LineSplitter.h"

#include <cstdlib>

void tonearm::fuzz::tryBytes(const QByteArray &bytes)
{
    double last = 0;
    ProgressReporter reporter(60, [&last](double fraction) {
        if (!(fraction >= last && fraction <= 1))
            std::abort();
        last = fraction;
    });
    LineSplitter lines([&reporter](const QString &line) { reporter.handle(line); });
    const qsizetype half = bytes.size() / 2;
    lines.add(bytes.first(half));
    lines.add(bytes.sliced(half));
    lines.finish();
}
