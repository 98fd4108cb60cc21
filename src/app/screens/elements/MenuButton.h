// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QMenu>
#include <QString>
#include <QToolButton>

#include <functional>

namespace tonearm {

/// A small button without a frame that opens a menu of things to pick.
class MenuButton : public QToolButton
{
    Q_OBJECT

public:
    /// Fills the menu, anew each time that it opens.
    using FillMenu = std::function<void(QMenu &)>;

    /// `purpose` is the tooltip and the accessible name, `menuName` the menu's accessible name.
    MenuButton(const QString &purpose, const QString &menuName, FillMenu fillMenu, QWidget *parent = nullptr);

private:
    QMenu *m_menu;
    FillMenu m_fillMenu;
};

/// Adds an entry that shows a text from outside the program, shortened where it is very long.
QAction *addPlainEntry(QMenu &menu, const QString &text);

} // namespace tonearm
