// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/elements/MenuButton.h"

#include "app/screens/elements/Icons.h"
#include "app/screens/elements/Mnemonic.h"

#include <utility>

namespace tonearm {

namespace {

constexpr int buttonWidth = 32;
constexpr int widestEntry = 360;

} // namespace

MenuButton::MenuButton(const QString &purpose, const QString &menuName, FillMenu fillMenu, QWidget *parent)
    : QToolButton(parent)
    , m_menu(new QMenu(this))
    , m_fillMenu(std::move(fillMenu))
{
    setAutoRaise(true);
    setFocusPolicy(Qt::StrongFocus);
    setFixedWidth(buttonWidth);
    setIcon(tonearm::icon(IconName::list));
    setToolTip(purpose);
    setAccessibleName(purpose);
    m_menu->setAccessibleName(menuName);
    // Assistive tools pick an entry without going through the menu, which would stay open.
    connect(m_menu, &QMenu::triggered, m_menu, &QWidget::close);
    // Not the button's own menu: that one would hold up whoever pressed the button until it closes.
    connect(this, &QToolButton::clicked, this, [this] {
        m_menu->clear();
        m_fillMenu(*m_menu);
        m_menu->popup(mapToGlobal(QPoint(0, height())));
    });
}

QAction *addPlainEntry(QMenu &menu, const QString &text)
{
    // A tab would stand for a shortcut.
    const QString line = menu.fontMetrics().elidedText(text.simplified(), Qt::ElideMiddle, widestEntry);
    return menu.addAction(withoutMnemonic(line));
}

} // namespace tonearm
