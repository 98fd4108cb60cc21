// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/StatusLine.h"

#include "app/screens/Bind.h"
#include "app/screens/Icons.h"
#include "app/screens/Spinner.h"
#include "workflow/AppModel.h"

#include <QHBoxLayout>
#include <QLabel>

namespace tonearm {

namespace {

using Kind = WorkflowState::Kind;

constexpr int signSide = 16;
constexpr int gap = 6;

QLabel *makeSign(IconName name, Tone tone, QWidget *parent)
{
    auto *sign = new QLabel(parent);
    sign->setPixmap(icon(name, tone).pixmap(QSize(signSide, signSide), parent->devicePixelRatioF()));
    return sign;
}

} // namespace

StatusLine::StatusLine(AppModel &model, QWidget *parent)
    : QWidget(parent)
{
    QLabel *warning = makeSign(IconName::warning, Tone::warning, this);
    QLabel *success = makeSign(IconName::success, Tone::success, this);
    auto *spinner = new Spinner(this, signSide);
    auto *text = new QLabel(this);
    text->setTextFormat(Qt::PlainText);
    text->setWordWrap(true);
    text->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);

    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(gap);
    for (QWidget *sign :
         {static_cast<QWidget *>(warning), static_cast<QWidget *>(success), static_cast<QWidget *>(spinner)})
        row->addWidget(sign, 0, Qt::AlignTop);
    row->addWidget(text, 1);

    bind(
        text, [&model] { return model.statusText(); }, &QLabel::setText);
    bind(
        this, [&model] { return model.currentState.value().kind(); },
        [this, warning, success, spinner](Kind kind) {
            warning->setVisible(kind == Kind::error);
            success->setVisible(kind == Kind::complete);
            spinner->setVisible(kind != Kind::error && kind != Kind::complete);
            setVisible(kind != Kind::idle);
        });
}

} // namespace tonearm
