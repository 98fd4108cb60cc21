// SPDX-License-Identifier: GPL-3.0-or-later
#include "Fuzz.h"

#include "web/Redirect.h"

#include <cstdlib>

// Whatever a server says: what is followed to is the web, and never less safe than before.
void tonearm::fuzz::tryBytes(const QByteArray &bytes)
{
    const QUrl asked(QStringLiteral("https://web.invalid/a/b?c"));
    const std::optional<QUrl> target = redirectTarget(asked, 302, bytes);
    if (target && !redirectRefusal(asked, *target) && target->scheme() != QStringLiteral("https"))
        std::abort();
}
