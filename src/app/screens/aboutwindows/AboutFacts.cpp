// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/aboutwindows/AboutFacts.h"

#include <QCoreApplication>

namespace tonearm {

VersionRecord VersionRecord::ofApplication()
{
    return {.version = QCoreApplication::applicationVersion(),
            .copyright = QStringLiteral(TONEARM_COPYRIGHT)};
}

} // namespace tonearm
