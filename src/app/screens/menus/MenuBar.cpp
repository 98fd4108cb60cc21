// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/menus/MenuBar.h"

#include "app/screens/menus/AboutCommands.h"
#include "app/screens/menus/EditCommands.h"
#include "app/screens/menus/FileCommands.h"
#include "app/screens/menus/ToolsCommands.h"

namespace tonearm {

MenuBar::MenuBar(AppModel &model, QWidget *window)
    : QMenuBar(window)
{
    auto *file = new FileCommands(model, window);
    connect(file, &FileCommands::closeRequested, this, &MenuBar::closeRequested);
    connect(file, &FileCommands::quitRequested, this, &MenuBar::quitRequested);
    add(file);
    auto *edit = new EditCommands(window);
    connect(edit, &EditCommands::settingsRequested, this, &MenuBar::settingsRequested);
    add(edit);
    auto *tools = new ToolsCommands(window);
    connect(tools, &ToolsCommands::editorRequested, this, &MenuBar::editorRequested);
    add(tools);
    auto *about = new AboutCommands(window);
    connect(about, &AboutCommands::helpRequested, this, &MenuBar::helpRequested);
    connect(about, &AboutCommands::aboutRequested, this, &MenuBar::aboutRequested);
    add(about);
}

void MenuBar::add(QMenu *menu)
{
    addMenu(menu);
    // Assistive tools choose an entry without going through the menu, which would stay open.
    connect(menu, &QMenu::triggered, menu, &QWidget::close);
}

} // namespace tonearm
