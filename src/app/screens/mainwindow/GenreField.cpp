// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/mainwindow/GenreField.h"

#include "app/screens/elements/MenuButton.h"
#include "app/screens/elements/ModelTextBox.h"
#include "workflow/AppModel.h"
#include "workflow/records/GenreCatalog.h"

#include <QHBoxLayout>
#include <QLineEdit>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

constexpr int boxWidth = 220;

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
    row->addWidget(new MenuButton(
        u"Choose from the default genres"_s, u"Default genres"_s, [this](QMenu &menu) { fillMenu(menu); },
        this));
    row->addStretch(1);
}

void GenreField::fillMenu(QMenu &menu)
{
    if (!m_model.genre.value().isEmpty()) {
        menu.addAction(u"Clear"_s, this, [this] { m_model.genre = QString(); });
        menu.addSeparator();
    }
    for (const Genre &genre : m_genres.defaults())
        connect(addPlainEntry(menu, genre.name), &QAction::triggered, this,
                [this, name = genre.name] { m_model.genre = name; });
}

} // namespace tonearm
