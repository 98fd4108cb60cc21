// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/screens/menus/MenuBar.h"
#include "helpers/ModelFixture.h"

#include <gtest/gtest.h>

#include <QLineEdit>
#include <QMainWindow>
#include <QMenu>

namespace tonearm::test {

/// The menus in a window with two text boxes, shown and active.
struct ShownMenus : testing::Test
{
    ShownMenus();

    /// The menu of a title; fails the test if there is none.
    QMenu &menu(const QString &title);

    /// The entry to be seen of a text, in all menus.
    QAction &entry(const QString &text);

    /// Opens a menu with the mouse.
    void openMenu(const QString &title);

    ModelFixture surroundings;
    AppModel &model = surroundings.model();
    QMainWindow window;
    QLineEdit *box = new QLineEdit;
    QLineEdit *other = new QLineEdit;
    MenuBar *bar = new MenuBar(model, &window);
};

/// A text without the marks of keys.
QString unmarked(const QString &text);

/// The entries of a menu that are to be seen as a screen reader tells them, "-" for a divider.
QStringList entriesOf(QMenu &menu);

/// The keys of an entry, in the form that is the same everywhere.
QString keysOf(const QAction &entry);

} // namespace tonearm::test
