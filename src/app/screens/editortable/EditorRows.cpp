// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/editortable/EditorRows.h"

#include "app/screens/editortable/EditorColumns.h"
#include "app/screens/elements/Tooltip.h"
#include "support/PathText.h"
#include "tageditor/PendingEdits.h"

#include <algorithm>
#include <utility>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

bool areSameFiles(const QList<EditableAudioFile> &ones, const QList<EditableAudioFile> &others)
{
    return std::equal(
        ones.begin(), ones.end(), others.begin(), others.end(),
        [](const EditableAudioFile &one, const EditableAudioFile &other) { return one.url == other.url; });
}

} // namespace

EditorRows::EditorRows(std::function<const TagChangeSet &()> changes, QObject *parent)
    : QAbstractTableModel(parent)
    , m_changes(std::move(changes))
{
}

void EditorRows::setFiles(const QList<EditableAudioFile> &files)
{
    if (files.size() != m_files.size()) {
        beginResetModel();
        m_files = files;
        endResetModel();
    } else if (areSameFiles(files, m_files)) {
        m_files = files;
        tellOfCells(0);
    } else {
        rearrange(files);
    }
}

void EditorRows::rearrange(const QList<EditableAudioFile> &files)
{
    Q_EMIT layoutAboutToBeChanged({}, VerticalSortHint);
    const QModelIndexList earlier = persistentIndexList();
    QModelIndexList later;
    // Mostly there is none, or just the current one.
    for (const QModelIndex &index : earlier) {
        const auto found = std::find_if(
            files.begin(), files.end(),
            [&url = m_files[index.row()].url](const EditableAudioFile &file) { return file.url == url; });
        later.append(found == files.end() ? QModelIndex()
                                          : createIndex(int(found - files.begin()), index.column()));
    }
    m_files = files;
    changePersistentIndexList(earlier, later);
    Q_EMIT layoutChanged({}, VerticalSortHint);
}

void EditorRows::tellOfEdits()
{
    tellOfCells(1);
}

// One range for all rows: whoever shows them looks at those in view only.
void EditorRows::tellOfCells(int firstColumn)
{
    if (!m_files.isEmpty())
        Q_EMIT dataChanged(index(0, firstColumn), index(rowCount() - 1, columnCount() - 1));
}

int EditorRows::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(m_files.size());
}

int EditorRows::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(editorColumns().size());
}

QVariant EditorRows::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const EditableAudioFile &file = m_files[index.row()];
    const std::optional<EditableTagField> field = editorColumns()[index.column()].field;
    if (role == isUnreadableRole)
        return file.unreadableReason.has_value();
    return field ? tagData(file, *field, role) : nameData(file, role);
}

QVariant EditorRows::nameData(const EditableAudioFile &file, int role) const
{
    switch (role) {
    case Qt::DisplayRole:
        return lastPathComponent(file.url);
    case Qt::ToolTipRole:
        return file.unreadableReason ? QVariant(plainTooltip(*file.unreadableReason)) : QVariant();
    case Qt::AccessibleDescriptionRole:
        return file.unreadableReason ? QVariant(*file.unreadableReason) : QVariant();
    case isEditedRole:
        return false;
    default:
        return {};
    }
}

QVariant EditorRows::tagData(const EditableAudioFile &file, EditableTagField field, int role) const
{
    switch (role) {
    case Qt::DisplayRole:
        return text(file, field);
    case Qt::AccessibleDescriptionRole:
        return isEdited(file, field) ? QVariant(u"Edited"_s) : QVariant();
    case isEditedRole:
        return isEdited(file, field);
    default:
        return {};
    }
}

QString EditorRows::text(const EditableAudioFile &file, EditableTagField field) const
{
    return file.unreadableReason ? u"—"_s : tableText(file, field, m_changes());
}

bool EditorRows::isEdited(const EditableAudioFile &file, EditableTagField field) const
{
    return !file.unreadableReason && tableText(file, field, m_changes()) != file.tags.value(field);
}

QVariant EditorRows::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || section < 0 || section >= columnCount())
        return {};
    switch (role) {
    case Qt::DisplayRole:
        return editorColumns()[section].title;
    case Qt::TextAlignmentRole:
        return int(Qt::AlignLeading | Qt::AlignVCenter);
    default:
        return {};
    }
}

Qt::ItemFlags EditorRows::flags(const QModelIndex &index) const
{
    if (!index.isValid())
        return Qt::NoItemFlags;
    const Qt::ItemFlags readable = Qt::ItemIsEnabled | Qt::ItemNeverHasChildren | Qt::ItemIsSelectable;
    return m_files[index.row()].unreadableReason ? readable & ~Qt::ItemIsSelectable : readable;
}

} // namespace tonearm
