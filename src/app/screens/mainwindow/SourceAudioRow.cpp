// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/mainwindow/SourceAudioRow.h"

#include "app/screens/elements/AccessibleRole.h"
#include "app/screens/elements/IconView.h"
#include "app/screens/elements/TextStyle.h"
#include "app/screens/mainwindow/AudioQualityMark.h"

#include <QGridLayout>
#include <QLabel>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

constexpr int badgeSide = 20;
constexpr int gap = 8;

} // namespace

SourceAudioRow::SourceAudioRow(QWidget *parent)
    : QWidget(parent)
    , m_badge(new IconView(IconName::cdBadge, Tone::text, this, badgeSide))
    , m_summary(new QLabel(this))
    , m_note(new QLabel(this))
{
    applyTextStyle(m_summary, TextStyle::emphasised);
    m_summary->setTextFormat(Qt::PlainText);
    m_summary->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    applyTextStyle(m_note, TextStyle::smallSecondary);
    m_note->setWordWrap(true);
    setAccessibleRole(m_badge, QAccessible::Graphic);
    setAccessibleRole(this, QAccessible::Grouping);

    auto *grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(gap);
    grid->setVerticalSpacing(2);
    grid->setColumnStretch(1, 1);
    grid->addWidget(m_badge, 0, 0);
    grid->addWidget(m_summary, 0, 1);
    grid->addWidget(m_note, 1, 1);
    setVisible(false);
}

void SourceAudioRow::setAudio(const std::optional<AudioStreamInfo> &audio)
{
    setVisible(audio.has_value());
    if (!audio)
        return;
    const AudioQualityMark mark = audioQualityMark(*audio);
    m_badge->setIcon(mark.icon, mark.tone);
    m_badge->setAccessibleName(mark.word);
    m_summary->setText(audio->summaryLine());
    m_note->setText(audio->qualityNote());
    setAccessibleName(u"Source audio: %1. %2"_s.arg(mark.word, audio->summaryLine()));
}

} // namespace tonearm
