// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/editorwindow/MetadataEditorView.h"

#include "app/screens/editortable/MetadataEditorTable.h"
#include "app/screens/editorwindow/FolderBar.h"
#include "app/screens/editorwindow/MetadataEditorFields.h"
#include "app/screens/editorwindow/OptionsRow.h"
#include "app/screens/editorwindow/SaveBar.h"
#include "app/screens/editorwindow/WarningLabel.h"
#include "app/screens/elements/Divider.h"
#include "app/screens/elements/IconLabel.h"
#include "tageditor/MetadataEditorModel.h"

#include <QCheckBox>
#include <QPushButton>
#include <QVBoxLayout>

namespace tonearm {

namespace {

constexpr int gap = 12;
constexpr int padding = 16;

} // namespace

MetadataEditorView::MetadataEditorView(MetadataEditorModel &model, const GenreCatalog &genres,
                                       ArtworkViewer &viewer, QWidget *parent)
    : QWidget(parent)
{
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(padding, padding, padding, padding);
    column->setSpacing(gap);
    auto *folder = new FolderBar(model, this);
    column->addWidget(folder);
    column->addWidget(makeWarningLabel(
        TextStyle::body, [&model] { return model.ffmpegProblem.value(); }, this));
    column->addWidget(new MetadataEditorTable(model, this), 1);
    column->addWidget(new Divider(this));
    auto *fields = new MetadataEditorFields(model, genres, viewer, this);
    connect(fields, &MetadataEditorFields::artworkViewingRequested, this,
            &MetadataEditorView::artworkViewingRequested);
    column->addWidget(fields);
    column->addWidget(new Divider(this));
    auto *options = new OptionsRow(model, this);
    column->addWidget(options);
    auto *bar = new SaveBar(model, {folder->chooseButton(), fields, options->toggle()}, this);
    connect(bar, &SaveBar::cancelled, this, &MetadataEditorView::cancelled);
    column->addWidget(bar);
}

} // namespace tonearm
