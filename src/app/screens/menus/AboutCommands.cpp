// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/menus/AboutCommands.h"

namespace tonearm {

using namespace Qt::StringLiterals;

AboutCommands::AboutCommands(QWidget *parent)
    : QMenu(u"&Help"_s, parent)
{
    addAction(u"Tonearm &Help"_s, Qt::Key_F1, this, &AboutCommands::helpRequested);
    addAction(u"&About Tonearm"_s, this, &AboutCommands::aboutRequested);
}

} // namespace tonearm
