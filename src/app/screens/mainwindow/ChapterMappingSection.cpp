// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/mainwindow/ChapterMappingSection.h"

#include "app/screens/chapters/ChapterTable.h"
#include "app/screens/elements/Bind.h"
#include "app/screens/elements/IconLabel.h"
#include "app/screens/elements/ShowIfAny.h"
#include "app/screens/elements/TextStyle.h"
#include "app/screens/mainwindow/EncodingTexts.h"
#include "workflow/AppModel.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

ChapterPreviewState previewOf(const ChapterInfo &chapter, const AppModel &model)
{
    if (model.previewingChapterID.value() == chapter.id)
        return ChapterPreviewState::playing;
    if (model.preparingPreviewChapterID.value() == chapter.id)
        return ChapterPreviewState::preparing;
    return ChapterPreviewState::silent;
}

QList<ChapterTableRow> rowsOf(const AppModel &model)
{
    const QList<ChapterInfo> chapters = model.chapters.value();
    const QMap<qint64, RipVerification> verifications = model.trackVerifications.value();
    QList<ChapterTableRow> rows;
    rows.reserve(chapters.size());
    for (const ChapterInfo &chapter : chapters) {
        const auto verification = verifications.constFind(chapter.id);
        rows.append({.number = QString::number(rows.size() + 1),
                     .sourceTitle = chapter.originalTitle,
                     .length = chapter.durationText(),
                     .songTitle = chapter.mappedTitle,
                     .preview = previewOf(chapter, model),
                     .canPreview = model.canPreview(),
                     .verification = verification == verifications.constEnd()
                                         ? std::nullopt
                                         : std::optional(*verification)});
    }
    return rows;
}

} // namespace

ChapterMappingSection::ChapterMappingSection(AppModel &model, QWidget *parent)
    : SectionBox(3, chapterHeading(0, false), parent)
    , m_model(model)
{
    bind(
        this, [&model] { return chapterHeading(model.chapters.value().size(), model.isDiscSource()); },
        &SectionBox::setTitle);
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

    auto *reset = new QPushButton(this);
    bind(
        reset, [this] { return m_model.isDiscSource(); },
        [](QPushButton *button, bool isDisc) {
            button->setText(isDisc ? u"Use Disc Titles"_s : u"Use Chapter Titles"_s);
            button->setToolTip(isDisc ? u"Replace the song titles with the disc's own CD-Text titles"_s
                                      : u"Replace the song titles with the file's own chapter titles"_s);
        });
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
    auto *note = new IconLabel(IconName::warningOutline, Tone::warning, this);
    bind(
        note, [this] { return m_model.tracklistMismatchNote(); }, showIfAny);
    content()->addWidget(note);
}

void ChapterMappingSection::addTable()
{
    auto *table = new ChapterTable(this);
    bind(
        table, [this] { return rowsOf(m_model); }, &ChapterTable::setRows);
    bind(
        table, [this] { return m_model.isDiscSource() ? u"Track"_s : u"Chapter"_s; },
        &ChapterTable::setSourceTitleHeader);
    connect(table, &ChapterTable::songTitleEdited, this,
            [this](int index, const QString &title) { m_model.setMappedTitle(index, title); });
    connect(table, &ChapterTable::previewToggled, this, [this](int index) {
        const QList<ChapterInfo> chapters = m_model.chapters.value();
        if (index < chapters.size())
            m_model.togglePreview(chapters[index]);
    });
    content()->addWidget(table, 1);
}

} // namespace tonearm
