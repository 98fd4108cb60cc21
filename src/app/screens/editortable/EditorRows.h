// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tageditor/EditableAudioFile.h"
#include "tageditor/TagChangeSet.h"

#include <QAbstractTableModel>
#include <QList>

#include <functional>

namespace tonearm {

/// The rows of the tag editor as a table. A cell's text is worked out when it is asked for, from the edits
/// as they are then.
class EditorRows : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Role {
        /// Whether a save would change what the cell stands for.
        isEditedRole = Qt::UserRole,
        isUnreadableRole,
    };

    /// `changes` gives the edits; it is called for every cell.
    explicit EditorRows(std::function<const TagChangeSet &()> changes, QObject *parent = nullptr);

    const QList<EditableAudioFile> &files() const { return m_files; }

    /// Rows that are there before and after keep what refers to them, such as the current row.
    void setFiles(const QList<EditableAudioFile> &files);

    /// To be called when the edits have changed.
    void tellOfEdits();

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;

private:
    QVariant nameData(const EditableAudioFile &file, int role) const;
    QVariant tagData(const EditableAudioFile &file, EditableTagField field, int role) const;
    QString text(const EditableAudioFile &file, EditableTagField field) const;
    bool isEdited(const EditableAudioFile &file, EditableTagField field) const;
    void tellOfCells(int firstColumn);
    void rearrange(const QList<EditableAudioFile> &files);

    std::function<const TagChangeSet &()> m_changes;
    QList<EditableAudioFile> m_files;
};

} // namespace tonearm
