// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/ChapterMappingSection.h"

#include "app/screens/Bind.h"
#include "app/screens/ChapterTable.h"
#include "app/screens/EncodingTexts.h"
#include "app/screens/IconLabel.h"
#include "app/screens/TextStyle.h"
#include "workflow/AppModel.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

QList<ChapterTableRow> rowsOf(const QList<ChapterInfo> &chapters)
{
    QList<ChapterTableRow> rows;
    rows.reserve(chapters.size());
    for (const ChapterInfo &chapter : chapters) {
        rows.append({QString::number(rows.size() + 1), chapter.originalTitle, chapter.durationText(),
                     chapter.mappedTitle});
    }
    return rows;
}

} // namespace

ChapterMappingSection::ChapterMappingSection(AppModel &model, QWidget *parent)
    : SectionBox(3, chapterHeading(0), parent)
    , m_model(model)
{
    bind(
        this, [&model] { return chapterHeading(model.chapters.value().size()); }, &SectionBox::setTitle);
    addExplanation();
    addMismatchNote();
    addTable();
}

void ChapterMappingSection::addExplanation()
{
    auto *explanation = new QLabel(this);
    explanation->setWordWrap(true);
    applyTextStyle(explanation, TextStyle::smallSecondary);
    bind(
        explanation,
        [this] {
            return m_model.chapters.value().isEmpty()
                       ? u"No chapters yet — choose an .mkv file, or insert an audio CD."_s
                       : u"Song titles are used for both the FLAC tags and the filenames."_s;
        },
        &QLabel::setText);

    auto *reset = new QPushButton(u"Use Chapter Titles"_s, this);
    reset->setToolTip(u"Replace the song titles with the file's own chapter titles"_s);
    connect(reset, &QPushButton::clicked, this, [this] { m_model.resetToSourceTitles(); });
    bind(
        reset, [this] { return !m_model.encodingTask.value().has_value(); }, &QWidget::setVisible);

    auto *row = new QHBoxLayout;
    row->addWidget(explanation, 1);
    row->addWidget(makeReapplyButton());
    row->addWidget(reset);
    content()->addLayout(row);
}

QWidget *ChapterMappingSection::makeReapplyButton()
{
    auto *button = new QPushButton(u"Re-apply Tracklist"_s, this);
    button->setToolTip(u"Copy this release's track titles onto the chapters again"_s);
    connect(button, &QPushButton::clicked, this, [this] {
        if (const std::optional<ReleaseInfo> release = m_model.selectedRelease.value())
            m_model.applyTracklist(release->tracks);
    });
    bind(
        button,
        [this] {
            const std::optional<ReleaseInfo> release = m_model.selectedRelease.value();
            return !m_model.encodingTask.value() && release && !release->tracks.isEmpty();
        },
        &QWidget::setVisible);
    return button;
}

void ChapterMappingSection::addMismatchNote()
{
    auto *note = new IconLabel(IconName::warning, Tone::warning, this);
    bind(
        note, [this] { return m_model.tracklistMismatchNote(); },
        [](IconLabel *label, const std::optional<QString> &text) {
            label->setText(text.value_or(QString()));
            label->setVisible(text.has_value());
        });
    content()->addWidget(note);
}

void ChapterMappingSection::addTable()
{
    auto *table = new ChapterTable(this);
    bind(
        table, [this] { return m_model.chapters.value(); },
        [](ChapterTable *shown, const QList<ChapterInfo> &chapters) { shown->setRows(rowsOf(chapters)); });
    connect(table, &ChapterTable::songTitleEdited, this,
            [this](int index, const QString &title) { m_model.setMappedTitle(index, title); });
    content()->addWidget(table, 1);
}

} // namespace tonearm
