// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/screens/editorwindow/TagField.h"

class QMenu;

namespace tonearm {

class GenreCatalog;

/// The genre as free text, with a menu of the usual ones and of those that the selected files have.
class GenreTagField : public TagField
{
    Q_OBJECT

public:
    GenreTagField(MetadataEditorModel &model, const GenreCatalog &genres, QWidget *parent = nullptr);

private:
    void fillMenu(QMenu &menu);
    void addGenres(QMenu &menu, const QStringList &names);

    MetadataEditorModel &m_model;
    const GenreCatalog &m_genres;
};

} // namespace tonearm
