// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStyledItemDelegate>

namespace tonearm {

/// Paints a release as two lines: its name, and its details a size smaller.
class ReleaseRowDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    /// The details, a text.
    static constexpr int detailRole = Qt::UserRole + 1;
    /// Around the lines, in pixels of the layout.
    static constexpr int padding = 8;

    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;
};

} // namespace tonearm
