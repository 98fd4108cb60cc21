// SPDX-License-Identifier: GPL-3.0-or-later
#include "menus/ShownMenus.h"

#include "helpers/Widgets.h"

#include <QAccessible>
#include <QTest>
#include <QVBoxLayout>

#include <stdexcept>

namespace tonearm::test {

using namespace Qt::StringLiterals;

namespace {

QAction &onlyOne(const QList<QAction *> &found, const QString &text)
{
    if (found.size() != 1)
        throw std::runtime_error("there is no one \"" + text.toStdString() + '"');
    return *found.first();
}

} // namespace

ShownMenus::ShownMenus()
{
    auto *content = new QWidget;
    auto *column = new QVBoxLayout(content);
    column->addWidget(box);
    column->addWidget(other);
    window.setCentralWidget(content);
    window.setMenuBar(bar);
    window.resize(400, 300);
    if (!showActive(window))
        throw std::runtime_error("the window didn't come up");
}

QMenu &ShownMenus::menu(const QString &title)
{
    QList<QAction *> found;
    for (QAction *action : bar->actions())
        if (unmarked(action->text()) == title)
            found.append(action);
    return *onlyOne(found, title).menu();
}

QAction &ShownMenus::entry(const QString &text)
{
    QList<QAction *> found;
    for (const QAction *title : bar->actions())
        for (QAction *action : title->menu()->actions())
            if (action->isVisible() && unmarked(action->text()) == text)
                found.append(action);
    return onlyOne(found, text);
}

void ShownMenus::openMenu(const QString &title)
{
    QTest::mouseClick(bar, Qt::LeftButton, {}, bar->actionGeometry(menu(title).menuAction()).center());
    ASSERT_TRUE(menu(title).isVisible());
}

QString unmarked(const QString &text)
{
    return QString(text).remove(u'&');
}

QStringList entriesOf(QMenu &menu)
{
    QStringList texts;
    QAccessibleInterface *interface = QAccessible::queryAccessibleInterface(&menu);
    const QList<QAction *> actions = menu.actions();
    for (qsizetype index = 0; index < actions.size(); ++index) {
        if (actions[index]->isSeparator())
            texts.append(u"-"_s);
        else if (actions[index]->isVisible())
            texts.append(interface->child(int(index))->text(QAccessible::Name));
    }
    return texts;
}

QString keysOf(const QAction &entry)
{
    return entry.shortcut().toString(QKeySequence::PortableText);
}

} // namespace tonearm::test
