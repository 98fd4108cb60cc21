// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/mainwindow/EncodingSection.h"

#include "app/screens/elements/Bind.h"
#include "app/screens/elements/IconLabel.h"
#include "app/screens/elements/ProgressBar.h"
#include "app/screens/elements/ProminentButton.h"
#include "app/screens/elements/ShowIfAny.h"
#include "app/screens/elements/TextStyle.h"
#include "app/screens/mainwindow/EncodingTexts.h"
#include "app/screens/mainwindow/StatusLine.h"
#include "workflow/AppModel.h"

#include <QHBoxLayout>
#include <QLabel>

#include <utility>

namespace tonearm {

using namespace Qt::StringLiterals;

EncodingSection::EncodingSection(AppModel &model, QWidget *parent)
    : SectionBox(4, u"Encode"_s, parent)
    , m_model(model)
{
    addButtons();
    addProgressBar();
    addHint();
    content()->addWidget(new StatusLine(model, this));
    addSummary();
}

bool EncodingSection::isRunning() const
{
    return m_model.encodingTask.value().has_value();
}

void EncodingSection::addButtons()
{
    auto *row = new QHBoxLayout;
    addJobButtons(row);
    row->addStretch(1);
    row->addWidget(makeShowButton());
    row->addWidget(makeClearButton());
    content()->addLayout(row);
}

void EncodingSection::addJobButtons(QHBoxLayout *row)
{
    auto *encode = new ProminentButton(u"Encode to FLAC"_s, this);
    connect(encode, &QPushButton::clicked, this, [this] { m_model.startEncoding(); });
    auto *cancel = new QPushButton(u"Cancel"_s, this);
    connect(cancel, &QPushButton::clicked, this, [this] { m_model.cancelEncoding(); });
    row->addWidget(encode);
    row->addWidget(cancel);
    bind(
        this, [this] { return std::pair(m_model.canEncode(), isRunning()); },
        [encode, cancel](std::pair<bool, bool> state) {
            const auto [ready, running] = state;
            const QWidget *focused = encode->window()->focusWidget();
            const bool hadFocus = focused == encode || focused == cancel;
            encode->setEnabled(ready);
            encode->setIcon(icon(IconName::encode, ready ? Tone::onAccent : Tone::text));
            cancel->setVisible(running);
            // Whoever works by keyboard stays with the job.
            if (hadFocus)
                (running ? cancel : encode)->setFocus();
        });
}

QPushButton *EncodingSection::makeShowButton()
{
    auto *button = new QPushButton(u"Show in Finder"_s, this);
    connect(button, &QPushButton::clicked, this, [this] { m_model.revealOutput(); });
    bind(
        button, [this] { return m_model.hasSource(); }, &QWidget::setVisible);
    bind(
        button, [this] { return m_model.completion.value().has_value(); },
        [](QPushButton *shown, bool finished) {
            shown->setEnabled(finished);
            shown->setToolTip(finished ? u"Open the folder the tracks were written to"_s
                                       : u"Available once the encode has finished"_s);
        });
    return button;
}

QPushButton *EncodingSection::makeClearButton()
{
    auto *button = new QPushButton(this);
    connect(button, &QPushButton::clicked, this, [this] { m_model.clearOrEject(); });
    bind(
        button, [this] { return m_model.clearButtonTitle(); }, &QPushButton::setText);
    const auto tooltip = [this] {
        return m_model.willEject() ? u"Eject the disc and clear the inputs"_s
                                   : u"Clear the inputs, ready for the next job"_s;
    };
    bind(button, tooltip, &QPushButton::setToolTip);
    bind(
        button, [this] { return m_model.hasSource(); }, &QWidget::setVisible);
    bind(
        button, [this] { return !isRunning(); }, &QWidget::setEnabled);
    return button;
}

void EncodingSection::addProgressBar()
{
    auto *bar = makeProgressBar(
        u"Encoding progress"_s, [this] { return m_model.encodingProgress.value(); }, this);
    bind(
        bar, [this] { return isRunning(); }, &QWidget::setVisible);
    content()->addWidget(bar);
}

void EncodingSection::addHint()
{
    auto *hint = new QLabel(this);
    applyTextStyle(hint, TextStyle::smallSecondary);
    bind(
        hint, [this] { return isRunning() || m_model.canEncode() ? QString() : encodingHint(m_model); },
        showIfAny);
    content()->addWidget(hint);
}

void EncodingSection::addSummary()
{
    auto *summary = new IconLabel(IconName::success, Tone::success, this);
    bind(
        summary, [this] { return encodingSummary(m_model); }, showIfAny);
    content()->addWidget(summary);

    auto *verification = new IconLabel(IconName::success, Tone::success, this);
    bind(
        verification, [this] { return verificationSummary(m_model); },
        [](IconLabel *label, const VerificationSummary &shown) {
            label->setIcon(shown.icon, shown.icon == IconName::warning ? Tone::warning : Tone::success);
            showIfAny(label, shown.text);
        });
    content()->addWidget(verification);
}

} // namespace tonearm
