// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/elements/PlaceholderScreen.h"

#include "app/screens/elements/IconView.h"
#include "app/screens/elements/TextStyle.h"

#include <QLabel>
#include <QVBoxLayout>

namespace tonearm {

namespace {

constexpr int iconSide = 48;
constexpr int gap = 8;

} // namespace

PlaceholderScreen::PlaceholderScreen(const PlaceholderContent &content, QWidget *parent)
    : QWidget(parent)
{
    auto *title = new QLabel(content.title, this);
    applyTextStyle(title, TextStyle::heading);
    auto *text = new QLabel(content.text, this);
    applyTextStyle(text, TextStyle::secondary);
    text->setAlignment(Qt::AlignHCenter);
    text->setWordWrap(true);
    auto *column = new QVBoxLayout(this);
    column->setSpacing(gap);
    column->addStretch(1);
    column->addWidget(new IconView(content.icon, Tone::secondary, this, iconSide), 0, Qt::AlignHCenter);
    column->addWidget(title, 0, Qt::AlignHCenter);
    column->addWidget(text);
    column->addStretch(1);
}

} // namespace tonearm
