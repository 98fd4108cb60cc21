// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/editortable/EditorFooter.h"

#include "app/screens/editortable/WrappingLayout.h"
#include "app/screens/elements/Bind.h"
#include "app/screens/elements/ShowIfAny.h"
#include "app/screens/elements/Spinner.h"
#include "app/screens/elements/TextStyle.h"
#include "tageditor/MetadataEditorModel.h"

#include <QHBoxLayout>
#include <QLabel>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

constexpr int gap = 12;
constexpr int lineGap = 4;
constexpr int gapAtSpinner = 6;

QString summaryText(const MetadataEditorModel &model)
{
    return model.files.value().isEmpty() ? QString() : model.selectionSummary();
}

QString skippedText(const MetadataEditorModel &model)
{
    const qint64 count = model.skippedAudioCount.value();
    if (count < 1)
        return {};
    return count == 1 ? u"1 other audio file was skipped."_s
                      : u"%1 other audio files were skipped."_s.arg(count);
}

} // namespace

EditorFooter::EditorFooter(const MetadataEditorModel &model, QWidget *parent)
    : QWidget(parent)
    , m_model(model)
{
    setLayout(new WrappingLayout(gap, lineGap, this));
    addText([&model] { return summaryText(model); });
    addText([&model] { return skippedText(model); });
    addSpinner();
    bind(
        this,
        [&model] {
            return !summaryText(model).isEmpty() || !skippedText(model).isEmpty() ||
                   model.isReadingArtwork.value();
        },
        &QWidget::setVisible);
}

// A piece that is there whenever its text isn't empty.
void EditorFooter::addText(const std::function<QString()> &text)
{
    auto *label = new QLabel(this);
    label->setTextFormat(Qt::PlainText);
    applyTextStyle(label, TextStyle::smallSecondary);
    layout()->addWidget(label);
    bind(label, text, showIfAny);
}

void EditorFooter::addSpinner()
{
    auto *piece = new QWidget(this);
    auto *text = new QLabel(u"Reading artwork…"_s, piece);
    applyTextStyle(text, TextStyle::smallSecondary);
    auto *row = new QHBoxLayout(piece);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(gapAtSpinner);
    row->addWidget(new Spinner(piece, text->sizeHint().height()));
    row->addWidget(text);
    layout()->addWidget(piece);
    bind(
        piece, [this] { return m_model.isReadingArtwork.value(); }, &QWidget::setVisible);
}

} // namespace tonearm
