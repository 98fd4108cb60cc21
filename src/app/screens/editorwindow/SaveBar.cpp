// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/editorwindow/SaveBar.h"

#include "app/screens/editorwindow/SaveBarState.h"
#include "app/screens/elements/Announcement.h"
#include "app/screens/elements/Bind.h"
#include "app/screens/elements/ElidedLabel.h"
#include "app/screens/elements/IconLabel.h"
#include "app/screens/elements/ProgressBar.h"
#include "app/screens/elements/ProminentButton.h"
#include "app/screens/elements/ShowIfAny.h"
#include "app/screens/elements/TextStyle.h"
#include "tageditor/MetadataEditorModel.h"

#include <QHBoxLayout>
#include <QPushButton>

#include <utility>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

using Kind = SaveBarState::Kind;

constexpr int gap = 8;
constexpr int barWidth = 160;

} // namespace

SaveBar::SaveBar(MetadataEditorModel &model, const QList<QWidget *> &editing, QWidget *parent)
    : QWidget(parent)
    , m_model(model)
    , m_editing(editing)
    , m_progress(makeProgress())
    , m_completion(new IconLabel(IconName::success, Tone::secondary, this))
    , m_pending(new QLabel(this))
    , m_cancel(new QPushButton(u"Cancel"_s, this))
    , m_save(new ProminentButton(u"Save"_s, this))
{
    makeAnnouncer(m_completion);
    applyTextStyle(m_completion, TextStyle::callout);
    applyTextStyle(m_pending, TextStyle::calloutSecondary);
    connect(m_cancel, &QPushButton::clicked, this, &SaveBar::cancelled);
    connect(m_save, &QPushButton::clicked, this, [&model] { model.save(); });

    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(gap);
    row->addWidget(m_progress, 1);
    row->addWidget(m_completion, 1);
    row->addWidget(m_pending);
    row->addStretch(0);
    row->addWidget(m_cancel);
    row->addWidget(m_save);
    // Once for both texts: to count the files is a walk over all of them.
    bind(
        this, [&model] { return saveBarState(model); },
        [this](const SaveBarState &state) { showState(state); });
    bind(
        this, [&model] { return std::pair(model.isSaving.value(), model.canSave()); },
        [this](std::pair<bool, bool> state) { setSaving(state.first, state.second); });
}

QWidget *SaveBar::makeProgress()
{
    auto *progress = new QWidget(this);
    auto *bar = makeProgressBar(
        u"Saving progress"_s, [this] { return m_model.saveProgress.value(); }, progress);
    bar->setFixedWidth(barWidth);
    auto *status = new ElidedLabel(Qt::ElideMiddle, progress);
    applyTextStyle(status, TextStyle::calloutSecondary);
    bind(
        status, [this] { return m_model.saveStatus.value().value_or(QString()); }, &QLabel::setText);
    m_stop = new QPushButton(u"Stop Saving"_s, progress);
    connect(m_stop, &QPushButton::clicked, this, [this] { m_model.stopSaving(); });
    auto *row = new QHBoxLayout(progress);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(gap);
    row->addWidget(bar);
    row->addWidget(status);
    row->addWidget(m_stop);
    row->addStretch(1);
    return progress;
}

void SaveBar::showState(const SaveBarState &state)
{
    showIfAny(m_pending, state.kind == Kind::pending ? state.text : QString());

    const bool hasFailures = state.kind == Kind::completedWithFailures;
    const bool isCompleted = hasFailures || state.kind == Kind::completed;
    m_completion->setIcon(hasFailures ? IconName::warning : IconName::success,
                          hasFailures ? Tone::warning : Tone::secondary);
    announceIfAny(m_completion, isCompleted ? state.text : QString());
}

void SaveBar::setSaving(bool isSaving, bool canSave)
{
    const bool begins = isSaving && !m_isSaving;
    const bool ends = !isSaving && m_isSaving;
    m_isSaving = isSaving;
    if (begins)
        m_focusBefore = window()->focusWidget();
    if (begins)
        m_progress->show();
    for (QWidget *widget : std::as_const(m_editing))
        widget->setEnabled(!isSaving);
    m_save->setEnabled(canSave);
    if (begins && m_focusBefore && !m_focusBefore->isEnabled())
        m_stop->setFocus();
    if (ends && window()->focusWidget() == m_stop)
        giveFocusBack();
    m_progress->setVisible(isSaving);
}

void SaveBar::giveFocusBack()
{
    const bool isThere = m_focusBefore && m_focusBefore->isEnabled() && m_focusBefore->isVisible();
    (isThere ? m_focusBefore.data() : m_cancel)->setFocus();
}

} // namespace tonearm
