// SPDX-License-Identifier: GPL-3.0-or-later
// What is shown for the selected rows.
#include "tageditor/MetadataEditorModel.h"

#include <cstddef>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

bool isSelected(const EditableAudioFile &row, const QSet<QUrl> &selection)
{
    return !row.unreadableReason && selection.contains(row.url);
}

QList<qsizetype> placesOf(const QList<EditableAudioFile> &rows, const QSet<QUrl> &selection)
{
    QList<qsizetype> places;
    for (qsizetype row = 0; row < rows.size() && !selection.isEmpty(); ++row)
        if (isSelected(rows[row], selection))
            places.append(row);
    return places;
}

// All rows are shared instead of copied.
QList<EditableAudioFile> rowsAt(const QList<EditableAudioFile> &rows, const QList<qsizetype> &places)
{
    if (places.size() == rows.size())
        return rows;
    QList<EditableAudioFile> found;
    found.reserve(places.size());
    for (const qsizetype place : places)
        found.append(rows[place]);
    return found;
}

QList<FieldEdits> editsOf(const QList<EditableAudioFile> &rows, const QHash<QUrl, FieldEdits> &edits)
{
    QList<FieldEdits> found(rows.size());
    for (qsizetype row = 0; row < rows.size() && !edits.isEmpty(); ++row)
        found[row] = edits.value(rows[row].url);
    return found;
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

// This runs at every keystroke, with thousands of rows.
MetadataEditorModel::SelectedTexts MetadataEditorModel::textsOf(const QList<EditableAudioFile> &rows,
                                                                const QList<qsizetype> &places,
                                                                const RowEdits &edits)
{
    SelectedTexts texts;
    texts.fill({.shown = {}, .stored = {}, .isEditedEverywhere = !places.isEmpty()});
    for (const qsizetype place : places) {
        const FieldEdits &rowEdits = edits[place];
        for (const EditableTagField field : allEditableTagFields) {
            SelectedText &text = texts.at(std::size_t(field));
            const QString &stored = rows[place].tags.value(field);
            const auto edit = rowEdits.constFind(field);
            const bool isEdited = edit != rowEdits.constEnd();
            join(text.stored, stored);
            join(text.shown, isEdited ? *edit : stored);
            text.isEditedEverywhere = text.isEditedEverywhere && isEdited;
        }
    }
    return texts;
}

const MetadataEditorModel::RowEdits &MetadataEditorModel::rowEdits() const
{
    return m_rowEdits.from(files.value(), changes.value().fieldEdits, editsOf);
}

const MetadataEditorModel::SelectedText &MetadataEditorModel::selectedText(EditableTagField field) const
{
    return m_selectedTexts.from(files.value(), selectedPlaces(), rowEdits(), textsOf).at(std::size_t(field));
}

void MetadataEditorModel::setSortOrder(const QList<RowComparator> &order)
{
    sortOrder = order;
    files = sortedRows(files.value(), order);
}

void MetadataEditorModel::setSelection(const QSet<QUrl> &newSelection)
{
    selectPlaces(placesOf(files.value(), newSelection));
}

void MetadataEditorModel::selectPlaces(const QList<qsizetype> &places)
{
    const QList<EditableAudioFile> &rows = files.value();
    QSet<QUrl> selected;
    selected.reserve(places.size());
    for (const qsizetype place : places)
        selected.insert(rows[place].url);
    if (selected == selection.value())
        return;
    m_selectedPlaces.put(places, rows, selected);
    selection = selected;
    readArtwork();
}

QList<qsizetype> MetadataEditorModel::selectedPlaces() const
{
    return m_selectedPlaces.from(files.value(), selection.value(), placesOf);
}

QList<EditableAudioFile> MetadataEditorModel::selectedFiles() const
{
    return m_selectedFiles.from(files.value(), selectedPlaces(), rowsAt);
}

QString MetadataEditorModel::selectionSummary() const
{
    const qsizetype count = files.value().size();
    return u"%1 %2 · %3 selected"_s.arg(QString::number(count), count == 1 ? u"file"_s : u"files"_s,
                                        QString::number(selectedPlaces().size()));
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
    const QList<EditableAudioFile> rows = selectedFiles();
    QSet<QString> seen;
    QStringList suggestions;
    for (const EditableAudioFile &row : rows) {
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
        .arg(selectedPlaces().size());
}

} // namespace tonearm
