// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/PathRow.h"

#include "app/screens/TextStyle.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

constexpr int labelWidth = 100;
constexpr int iconSide = 16;
constexpr int gap = 8;

// Looks like a label; unlike one it never asks for more width than there is.
QLineEdit *makeSelectableText(QWidget *parent)
{
    auto *text = new QLineEdit(parent);
    text->setReadOnly(true);
    text->setFrame(false);
    text->setTextMargins(0, 0, 0, 0);
    text->setStyleSheet(u"QLineEdit { background: transparent; }"_s);
    return text;
}

} // namespace

PathRow::PathRow(const QString &label, QWidget *parent)
    : QWidget(parent)
    , m_label(new QLabel(label, this))
    , m_icon(new QLabel(this))
    , m_path(makeSelectableText(this))
{
    m_label->setFixedWidth(labelWidth);
    applyTextStyle(m_label, TextStyle::emphasised);
    m_label->setBuddy(m_path);
    m_icon->setVisible(false);
    m_path->setAccessibleName(label);

    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(gap);
    row->addWidget(m_label);
    row->addWidget(m_icon);
    row->addWidget(m_path, 1);
    setPath(std::nullopt);
}

void PathRow::setIcon(IconName name)
{
    m_icon->setPixmap(icon(name).pixmap(QSize(iconSide, iconSide), devicePixelRatioF()));
    m_icon->setVisible(true);
}

void PathRow::setPath(const std::optional<QString> &path)
{
    m_path->setText(path.value_or(u"Not selected"_s));
    m_path->setCursorPosition(0);
    m_path->setToolTip(path.value_or(QString()));
    QPalette colours;
    if (!path)
        colours.setBrush(QPalette::Text, palette().brush(QPalette::PlaceholderText));
    m_path->setPalette(colours);
}

} // namespace tonearm
