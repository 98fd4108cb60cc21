// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStyledItemDelegate>

namespace tonearm {

/// Paints what stands in a cell of the tag editor's table: the dot and the text of a tag, or the file's name,
/// with a warning where the file can't be read. The ground is the row's.
class EditorCellDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    static constexpr int dotSide = 5;
    static constexpr int dotGap = 4;
    /// At either side of a cell.
    static constexpr int padding = 4;

    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    /// A text that is cut short shows in full, unless the cell has another tooltip.
    bool helpEvent(QHelpEvent *event, QAbstractItemView *view, const QStyleOptionViewItem &option,
                   const QModelIndex &index) override;
};

} // namespace tonearm
