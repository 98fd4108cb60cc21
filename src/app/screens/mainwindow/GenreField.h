// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

class QLineEdit;
class QMenu;

namespace tonearm {

class AppModel;
class GenreCatalog;

/// The genre as free text, with a menu of the usual ones beside it.
class GenreField : public QWidget
{
    Q_OBJECT

public:
    GenreField(AppModel &model, const GenreCatalog &genres, QWidget *parent = nullptr);

    QLineEdit *box() const { return m_box; }

private:
    void fillMenu(QMenu &menu);

    AppModel &m_model;
    const GenreCatalog &m_genres;
    QLineEdit *m_box;
};

} // namespace tonearm
