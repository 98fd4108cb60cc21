// SPDX-License-Identifier: GPL-3.0-or-later
#include "helpers/Menus.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QTest>

#include <stdexcept>

namespace tonearm::test {

using namespace Qt::StringLiterals;

QMenu &openMenu()
{
    auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
    if (!menu)
        throw std::runtime_error("no menu is open");
    return *menu;
}

QMenu &openContextMenu(QWidget &widget)
{
    const QPoint centre = widget.rect().center();
    QContextMenuEvent event(QContextMenuEvent::Mouse, centre, widget.mapToGlobal(centre), Qt::NoModifier);
    QApplication::sendEvent(&widget, &event);
    return openMenu();
}

QStringList entriesOf(const QMenu &menu)
{
    QStringList texts;
    for (const QAction *action : menu.actions()) {
        const QString text = action->isSeparator() ? u"-"_s : action->text();
        texts.append(action->isEnabled() ? text : QString(u'(' + text + u')'));
    }
    return texts;
}

void pick(QMenu &menu, const QString &text)
{
    for (QAction *action : menu.actions()) {
        if (action->text() != text)
            continue;
        QTest::mouseClick(&menu, Qt::LeftButton, {}, menu.actionGeometry(action).center());
        return;
    }
    throw std::runtime_error("the menu has no \"" + text.toStdString() + '"');
}

} // namespace tonearm::test
