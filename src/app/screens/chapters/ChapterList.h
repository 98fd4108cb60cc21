// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/screens/chapters/ChapterColumns.h"
#include "app/screens/chapters/ChapterRowViews.h"
#include "app/screens/chapters/ChapterTableRow.h"

#include <QAbstractScrollArea>
#include <QList>

#include <optional>

namespace tonearm {

class ChapterHeader;

/// The scrolling rows of the chapter table under their header. Only rows that can be seen have widgets,
/// and the row that has the focus keeps its own wherever it is scrolled to. The rows are one stop in
/// the window's Tab order, behind which the table moves from box to box itself.
class ChapterList : public QAbstractScrollArea
{
    Q_OBJECT

public:
    explicit ChapterList(QWidget *parent = nullptr);

    void setSourceTitleHeader(const QString &title);

    /// Where only song titles, previews or badges differ from those shown, nothing else changes.
    /// Without rows there are placeholders.
    void setRows(const QList<ChapterTableRow> &rows);

    QSize minimumSizeHint() const override;

Q_SIGNALS:
    void songTitleEdited(int index, const QString &title);
    void previewToggled(int index);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    bool focusNextPrevChild(bool next) override;
    void changeEvent(QEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void scrollContentsBy(int dx, int dy) override;

private:
    ChapterRowView *madeView();
    void fill(ChapterRowView &view, int row) const;

    int rowCount() const;
    std::optional<int> focusedRow() const;

    void measure();
    void refill();
    void layoutRows();
    void updateScrollBar();
    void reveal(int row);
    void focusRow(int row, Qt::FocusReason reason);
    bool leave(bool next);
    void saveFocus(qsizetype count);

    ChapterColumns m_columns;
    ChapterHeader *m_header;
    QList<ChapterTableRow> m_rows;
    ChapterRowViews m_views;
    int m_rowHeight = 1;
    bool m_isLeaving = false;
};

} // namespace tonearm
