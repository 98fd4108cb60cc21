// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/screens/editortable/ColumnWidths.h"

#include <QHeaderView>

namespace tonearm {

/// The column titles of the tag editor's table. Columns fill the table's width and never get narrower than
/// their minimum. With the focus, the arrow keys walk through the titles, Space or Return chooses one, and
/// the arrow keys with Shift resize its column.
class EditorHeader : public QHeaderView
{
    Q_OBJECT

public:
    explicit EditorHeader(QWidget *parent = nullptr);

    /// Lets the columns share the table's width.
    void setRoom(int room);

Q_SIGNALS:
    /// The user clicked a title, or did the same by keys.
    void columnChosen(int column);

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void paintSection(QPainter *painter, const QRect &place, int column) const override;

private:
    QList<ColumnWish> wishes() const;
    QList<int> currentWidths() const;
    void setWidths(const QList<int> &widths, int firstColumn);
    void takeUserWidth(int column, int width);
    void endResizing();
    void walkTo(int column);
    void handleArrow(int step, bool isResizing);

    int m_room = 0;
    int m_focused = 0;
    bool m_isArranging = false;
    // Empty as long as the user hasn't resized any column.
    QList<int> m_userWidths;
    // The widths before the resizing that is under way.
    QList<int> m_widthsBefore;
};

} // namespace tonearm
