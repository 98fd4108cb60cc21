// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QBitArray>
#include <QTreeView>

namespace tonearm {

class EditorHeader;
class EditorRows;
class MetadataEditorModel;

/// The rows of the tag editor under their titles. Which rows are selected is the model's: what the user
/// selects goes there, and what shows comes from there.
class EditorRowList : public QTreeView
{
    Q_OBJECT

public:
    /// The model must outlive the list.
    EditorRowList(MetadataEditorModel &model, QWidget *parent);

    void dataChanged(const QModelIndex &topLeft, const QModelIndex &bottomRight,
                     const QList<int> &roles = {}) override;

protected:
    void selectionChanged(const QItemSelection &selected, const QItemSelection &deselected) override;
    void resizeEvent(QResizeEvent *event) override;
    void drawRow(QPainter *painter, const QStyleOptionViewItem &option,
                 const QModelIndex &index) const override;
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;

private:
    void showFiles();
    void showSelection();
    void showSortOrder();
    void sortBy(int column);
    QBitArray selectedInModel() const;
    QBitArray highlighted() const;
    void highlight(const QBitArray &rows);
    void drawGround(QPainter *painter, const QStyleOptionViewItem &row) const;
    void drawFocus(QPainter *painter, const QStyleOptionViewItem &cell) const;

    MetadataEditorModel &m_model;
    EditorRows *m_rows;
    EditorHeader *m_header;
    // A bit for each row. Painting goes by it: to ask Qt of a selection with thousands of gaps takes long.
    QBitArray m_selected;
    // The list itself changes what is highlighted, not the user.
    bool m_isFollowing = false;
};

} // namespace tonearm
