// SPDX-License-Identifier: GPL-3.0-or-later
// What is shown for the selected rows.
#include "tageditor/MetadataEditorModel.h"
#include "tageditor/PendingEdits.h"

#include <algorithm>
#include <utility>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

// What `valueOf` gives for the rows, if that is the same for all of them.
template <typename ValueOf> CommonValue commonOf(const QList<EditableAudioFile> &rows, ValueOf valueOf)
{
    if (rows.isEmpty())
        return CommonValue::none();
    const QString first = valueOf(rows.first());
    const auto isAlike = [&](const EditableAudioFile &row) { return valueOf(row) == first; };
    return std::all_of(rows.begin(), rows.end(), isAlike) ? CommonValue::value(first) : CommonValue::mixed();
}

} // namespace

void MetadataEditorModel::setSortOrder(const QList<RowComparator> &order)
{
    sortOrder = order;
    files = sortedRows(files.value(), order);
}

void MetadataEditorModel::setSelection(const QSet<QUrl> &newSelection)
{
    QSet<QUrl> selectable;
    for (const EditableAudioFile &row : files.value())
        if (!row.unreadableReason && newSelection.contains(row.url))
            selectable.insert(row.url);
    if (selectable == selection.value())
        return;
    selection = selectable;
    readArtwork();
}

QList<EditableAudioFile> MetadataEditorModel::selectedFiles() const
{
    const QList<EditableAudioFile> rows = files.value();
    const QSet<QUrl> selected = selection.value();
    QList<EditableAudioFile> result;
    std::copy_if(rows.begin(), rows.end(), std::back_inserter(result), [&](const EditableAudioFile &row) {
        return !row.unreadableReason && selected.contains(row.url);
    });
    return result;
}

QString MetadataEditorModel::selectionSummary() const
{
    const qsizetype count = files.value().size();
    return u"%1 %2 · %3 selected"_s.arg(QString::number(count), count == 1 ? u"file"_s : u"files"_s,
                                        QString::number(selectedFiles().size()));
}

CommonValue MetadataEditorModel::commonValue(EditableTagField field) const
{
    const TagChangeSet pending = changes.value();
    return commonOf(selectedFiles(),
                    [&](const EditableAudioFile &row) { return pendingValue(row, field, pending); });
}

QString MetadataEditorModel::placeholder(EditableTagField field) const
{
    return commonValue(field) == CommonValue::mixed() ? u"-"_s : label(field);
}

QStringList MetadataEditorModel::genreSuggestions() const
{
    const QList<Genre> offered = m_services.genres.defaults();
    QStringList suggestions;
    for (const EditableAudioFile &row : selectedFiles()) {
        const QString genre = row.tags.genre;
        if (!genre.isEmpty() && !offered.contains(Genre{genre}) && !suggestions.contains(genre))
            suggestions.append(genre);
    }
    return suggestions;
}

QList<EditableTagField> MetadataEditorModel::overwrittenFields() const
{
    const QList<EditableAudioFile> rows = selectedFiles();
    const TagChangeSet pending = changes.value();
    QList<EditableTagField> fields;
    for (const EditableTagField field : allEditableTagFields) {
        const CommonValue stored =
            commonOf(rows, [&](const EditableAudioFile &row) { return row.tags.value(field); });
        const bool isEditedEverywhere =
            std::all_of(rows.begin(), rows.end(), [&](const EditableAudioFile &row) {
                return pending.fieldEdits.value(row.url).contains(field);
            });
        if (stored == CommonValue::mixed() && isEditedEverywhere)
            fields.append(field);
    }
    return fields;
}

std::optional<QString> MetadataEditorModel::overwriteWarning() const
{
    if (overwrittenFields().isEmpty())
        return std::nullopt;
    return u"This value will be applied to all %1 selected files, replacing the different values they have now."_s
        .arg(selectedFiles().size());
}

} // namespace tonearm
