// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/mainwindow/StatusLine.h"

#include "app/screens/elements/Announcement.h"
#include "app/screens/elements/Bind.h"
#include "app/screens/elements/IconView.h"
#include "app/screens/elements/Spinner.h"
#include "workflow/AppModel.h"

#include <QHBoxLayout>
#include <QLabel>

#include <utility>

namespace tonearm {

namespace {

using Kind = WorkflowState::Kind;

constexpr int gap = 6;

void showSign(IconView *sign, Spinner *spinner, Kind kind)
{
    const bool failed = kind == Kind::error;
    const bool rests = failed || kind == Kind::complete;
    sign->setIcon(failed ? IconName::warning : IconName::success, failed ? Tone::warning : Tone::success);
    sign->setVisible(rests);
    spinner->setVisible(!rests);
}

} // namespace

StatusLine::StatusLine(AppModel &model, QWidget *parent)
    : QWidget(parent)
{
    auto *sign = new IconView(IconName::success, Tone::success, this);
    auto *spinner = new Spinner(this, IconView::besideText);
    auto *text = new QLabel(this);
    text->setTextFormat(Qt::PlainText);
    text->setWordWrap(true);
    text->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    makeAnnouncer(text);

    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(gap);
    row->addWidget(sign, 0, Qt::AlignTop);
    row->addWidget(spinner, 0, Qt::AlignTop);
    row->addWidget(text, 1);

    bind(
        this, [&model] { return std::pair(model.currentState.value().kind(), model.statusText()); },
        [this, sign, spinner, text](const std::pair<Kind, QString> &status) {
            const auto &[kind, message] = status;
            const bool isNews = text->text() != message && !message.isEmpty();
            showSign(sign, spinner, kind);
            text->setText(message);
            text->setAccessibleName(message);
            if (isNews && kind != Kind::idle)
                announce(text);
            setVisible(kind != Kind::idle);
        });
}

} // namespace tonearm
