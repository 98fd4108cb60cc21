// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/menus/ToolsCommands.h"

namespace tonearm {

using namespace Qt::StringLiterals;

ToolsCommands::ToolsCommands(QWidget *parent)
    : QMenu(u"&Tools"_s, parent)
{
    addAction(u"Edit &Metadata…"_s, this, &ToolsCommands::editorRequested);
}

} // namespace tonearm
