// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/editorwindow/MetadataEditorFields.h"

#include "app/screens/editorwindow/EditorArtworkColumn.h"
#include "app/screens/editorwindow/GenreTagField.h"
#include "app/screens/editorwindow/WarningLabel.h"
#include "app/screens/elements/Bind.h"
#include "app/screens/elements/IconLabel.h"
#include "tageditor/MetadataEditorModel.h"

#include <QGridLayout>
#include <QHBoxLayout>

namespace tonearm {

namespace {

using Field = EditableTagField;

constexpr int gap = 10;
constexpr int gapBesideArtwork = 20;
constexpr int numberWidth = 90;
constexpr int yearWidth = 70;

} // namespace

MetadataEditorFields::MetadataEditorFields(MetadataEditorModel &model, const GenreCatalog &genres,
                                           ArtworkViewer &viewer, QWidget *parent)
    : QWidget(parent)
    , m_model(model)
{
    auto *columns = new QHBoxLayout(this);
    columns->setContentsMargins(0, 0, 0, 0);
    columns->setSpacing(gapBesideArtwork);
    columns->addLayout(makeTags(genres), 1);
    auto *artwork = new EditorArtworkColumn(model, viewer, this);
    connect(artwork, &EditorArtworkColumn::viewingRequested, this,
            &MetadataEditorFields::artworkViewingRequested);
    columns->addWidget(artwork);
}

QVBoxLayout *MetadataEditorFields::makeTags(const GenreCatalog &genres)
{
    const QList<TagField *> fields = {
        new TagField(m_model, Field::artist, {}, this),
        new TagField(m_model, Field::album, {}, this),
        new TagField(m_model, Field::title, {}, this),
        new GenreTagField(m_model, genres, this),
        new TagField(m_model, Field::trackPosition, numberWidth, this),
        new TagField(m_model, Field::year, yearWidth, this),
        new TagField(m_model, Field::discNumber, numberWidth, this),
    };
    constexpr int columnCount = 2;
    auto *grid = new QGridLayout;
    grid->setSpacing(gap);
    for (int index = 0; index < fields.size(); ++index)
        grid->addWidget(fields.at(index), index / columnCount, index % columnCount);
    for (int column = 0; column < columnCount; ++column)
        grid->setColumnStretch(column, 1);
    // Once for all fields: to find out is a walk over all selected files.
    bind(
        this, [this] { return m_model.overwrittenFields(); },
        [fields](const QList<Field> &overwritten) {
            for (TagField *field : fields)
                field->setOverwritten(overwritten.contains(field->field()));
        });

    auto *column = new QVBoxLayout;
    column->setSpacing(gap);
    column->addLayout(grid);
    column->addWidget(makeWarningLabel(
        TextStyle::small, [this] { return m_model.overwriteWarning(); }, this));
    column->addStretch(1);
    return column;
}

} // namespace tonearm
