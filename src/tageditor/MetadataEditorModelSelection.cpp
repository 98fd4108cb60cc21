// SPDX-License-Identifier: GPL-3.0-or-later
// What is shown for the selected rows.
#include "tageditor/MetadataEditorModel.h"

#include <algorithm>
#include <cstddef>
#include <iterator>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

bool isSelected(const EditableAudioFile &row, const QSet<QUrl> &selection)
{
    return !row.unreadableReason && selection.contains(row.url);
}

QList<EditableAudioFile> rowsIn(const QList<EditableAudioFile> &rows, const QSet<QUrl> &selection)
{
    QList<EditableAudioFile> selected;
    if (selection.isEmpty())
        return selected;
    const auto wanted = [&](const EditableAudioFile &row) { return isSelected(row, selection); };
    // Mostly one or all of them; all are shared instead of copied.
    if (std::all_of(rows.begin(), rows.end(), wanted))
        return rows;
    std::copy_if(rows.begin(), rows.end(), std::back_inserter(selected), wanted);
    return selected;
}

using FieldEdits = QMap<EditableTagField, QString>;

// Null if there is none.
const QString *editOf(const FieldEdits *edits, EditableTagField field)
{
    if (!edits)
        return nullptr;
    const auto edit = edits->constFind(field);
    return edit == edits->constEnd() ? nullptr : &*edit;
}

// Takes in one more value.
void join(CommonValue &common, const QString &value)
{
    if (common.kind == CommonValue::Kind::none)
        common = CommonValue::value(value);
    else if (common.kind == CommonValue::Kind::value && common.text != value)
        common = CommonValue::mixed();
}

} // namespace

// Each row's edits are looked up once for all fields: this runs at every keystroke, with thousands of rows.
MetadataEditorModel::SelectedTexts
MetadataEditorModel::textsOf(const QList<EditableAudioFile> &rows,
                             const QHash<QUrl, QMap<EditableTagField, QString>> &edits)
{
    SelectedTexts texts;
    texts.fill({.shown = {}, .stored = {}, .isEditedEverywhere = !rows.isEmpty()});
    for (const EditableAudioFile &row : rows) {
        const auto found = edits.constFind(row.url);
        const FieldEdits *rowEdits = found == edits.constEnd() ? nullptr : &*found;
        for (const EditableTagField field : allEditableTagFields) {
            SelectedText &text = texts.at(std::size_t(field));
            const QString &stored = row.tags.value(field);
            const QString *edit = editOf(rowEdits, field);
            join(text.stored, stored);
            join(text.shown, edit ? *edit : stored);
            text.isEditedEverywhere = text.isEditedEverywhere && edit;
        }
    }
    return texts;
}

const MetadataEditorModel::SelectedText &MetadataEditorModel::selectedText(EditableTagField field) const
{
    return m_selectedTexts.from(selectedFiles(), changes.value().fieldEdits, textsOf).at(std::size_t(field));
}

void MetadataEditorModel::setSortOrder(const QList<RowComparator> &order)
{
    sortOrder = order;
    files = sortedRows(files.value(), order);
}

void MetadataEditorModel::setSelection(const QSet<QUrl> &newSelection)
{
    QSet<QUrl> selectable;
    selectable.reserve(newSelection.size());
    for (const EditableAudioFile &row : files.value())
        if (isSelected(row, newSelection))
            selectable.insert(row.url);
    if (selectable == selection.value())
        return;
    selection = selectable;
    readArtwork();
}

QList<EditableAudioFile> MetadataEditorModel::selectedFiles() const
{
    return m_selectedFiles.from(files.value(), selection.value(), rowsIn);
}

QString MetadataEditorModel::selectionSummary() const
{
    const qsizetype count = files.value().size();
    return u"%1 %2 · %3 selected"_s.arg(QString::number(count), count == 1 ? u"file"_s : u"files"_s,
                                        QString::number(selectedFiles().size()));
}

CommonValue MetadataEditorModel::commonValue(EditableTagField field) const
{
    return selectedText(field).shown;
}

QString MetadataEditorModel::placeholder(EditableTagField field) const
{
    return placeholderOf(field, commonValue(field));
}

QString placeholderOf(EditableTagField field, const CommonValue &common)
{
    return common == CommonValue::mixed() ? u"-"_s : label(field);
}

QStringList MetadataEditorModel::genreSuggestions() const
{
    const QList<Genre> offered = m_services.genres.defaults();
    QSet<QString> seen;
    QStringList suggestions;
    for (const EditableAudioFile &row : selectedFiles()) {
        const QString &genre = row.tags.genre;
        if (genre.isEmpty() || seen.contains(genre))
            continue;
        seen.insert(genre);
        if (!offered.contains(Genre{genre}))
            suggestions.append(genre);
    }
    return suggestions;
}

QList<EditableTagField> MetadataEditorModel::overwrittenFields() const
{
    QList<EditableTagField> fields;
    for (const EditableTagField field : allEditableTagFields) {
        const SelectedText &text = selectedText(field);
        if (text.stored == CommonValue::mixed() && text.isEditedEverywhere)
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
