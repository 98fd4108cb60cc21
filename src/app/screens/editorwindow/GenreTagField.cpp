// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/editorwindow/GenreTagField.h"

#include "app/screens/elements/MenuButton.h"
#include "app/screens/elements/Tooltip.h"
#include "tageditor/MetadataEditorModel.h"
#include "workflow/records/GenreCatalog.h"

#include <QLineEdit>

namespace tonearm {

using namespace Qt::StringLiterals;

GenreTagField::GenreTagField(MetadataEditorModel &model, const GenreCatalog &genres, QWidget *parent)
    : TagField(model, EditableTagField::genre, {}, parent)
    , m_model(model)
    , m_genres(genres)
{
    setLongTooltip(
        box(),
        u"Written to the GENRE tag, which is what media servers group and browse by. Type anything, or "
        u"pick from the list — the list is a set of defaults, not a set of allowed values."_s);
    addBehindBox(new MenuButton(
        u"Choose from the default genres"_s, u"Genres"_s, [this](QMenu &menu) { fillMenu(menu); }, this));
}

void GenreTagField::fillMenu(QMenu &menu)
{
    menu.addAction(u"Clear Genre"_s, this, [this] { m_model.setValue(QString(), field()); });
    addGenres(menu, m_model.genreSuggestions());
    QStringList defaults;
    for (const Genre &genre : m_genres.defaults())
        defaults.append(genre.name);
    addGenres(menu, defaults);
}

void GenreTagField::addGenres(QMenu &menu, const QStringList &names)
{
    if (!names.isEmpty())
        menu.addSeparator();
    for (const QString &name : names)
        connect(addPlainEntry(menu, name), &QAction::triggered, this,
                [this, name] { m_model.setValue(name, field()); });
}

} // namespace tonearm
