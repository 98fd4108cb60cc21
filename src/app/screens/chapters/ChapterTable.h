// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/screens/chapters/ChapterTableRow.h"

#include <QList>
#include <QWidget>

namespace tonearm {

class ChapterList;

/// The table of chapters or tracks, in which the song titles are edited. It shows what it is given and
/// tells what the user types, and holds nothing else. Its accessible name is "Song titles" unless it is
/// given another.
class ChapterTable : public QWidget
{
    Q_OBJECT

public:
    explicit ChapterTable(QWidget *parent = nullptr);

    /// What stands above the source's own titles; "Chapter" at first.
    void setSourceTitleHeader(const QString &title);

    /// To be called whenever anything in the rows changes. Where only song titles, previews or badges differ
    /// from those shown, nothing but those changes, and a box that shows its title already is left alone with
    /// its cursor and its undo history; so the rows may well be set at every keystroke. Otherwise the
    /// table starts again from its top. Without rows it shows placeholders.
    void setRows(const QList<ChapterTableRow> &rows);

Q_SIGNALS:
    /// At every change that the user makes to a title. Rows count from 0.
    void songTitleEdited(int index, const QString &title);
    /// The row's preview was pressed.
    void previewToggled(int index);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    ChapterList *m_list;
};

} // namespace tonearm
