// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/mainwindow/GenreField.h"

#include "app/screens/elements/Icons.h"
#include "app/screens/elements/ModelTextBox.h"
#include "workflow/AppModel.h"
#include "workflow/records/GenreCatalog.h"

#include <QHBoxLayout>
#include <QLineEdit>
#include <QMenu>
#include <QToolButton>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

constexpr int boxWidth = 220;
constexpr int menuWidth = 32;

} // namespace

GenreField::GenreField(AppModel &model, const GenreCatalog &genres, QWidget *parent)
    : QWidget(parent)
    , m_model(model)
    , m_genres(genres)
    , m_box(makeModelTextBox(model.genre, u"Genre"_s, this))
{
    m_box->setFixedWidth(boxWidth);
    m_box->setToolTip(
        u"Written to the GENRE tag on every track, which is what media servers group and browse "
        u"by. Type anything, or pick from the list."_s);

    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(4);
    row->addWidget(m_box);
    row->addWidget(makeMenuButton());
    row->addStretch(1);
}

QWidget *GenreField::makeMenuButton()
{
    auto *menu = new QMenu(this);
    menu->setAccessibleName(u"Default genres"_s);
    // Assistive tools pick an entry without going through the menu, which would stay open.
    connect(menu, &QMenu::triggered, menu, &QWidget::close);
    auto *button = new QToolButton(this);
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::StrongFocus);
    button->setFixedWidth(menuWidth);
    button->setIcon(icon(IconName::list));
    button->setToolTip(u"Choose from the default genres"_s);
    button->setAccessibleName(u"Choose from the default genres"_s);
    // Not the button's own menu: that one would hold up whoever pressed the button until it closes.
    connect(button, &QToolButton::clicked, this, [this, menu, button] {
        fillMenu(menu);
        menu->popup(button->mapToGlobal(QPoint(0, button->height())));
    });
    return button;
}

void GenreField::fillMenu(QMenu *menu)
{
    menu->clear();
    if (!m_model.genre.value().isEmpty()) {
        menu->addAction(u"Clear"_s, this, [this] { m_model.genre = QString(); });
        menu->addSeparator();
    }
    for (const Genre &genre : m_genres.defaults()) {
        QAction *entry = menu->addAction(QString(genre.name).replace(u'&', u"&&"_s));
        connect(entry, &QAction::triggered, this, [this, name = genre.name] { m_model.genre = name; });
    }
}

} // namespace tonearm
