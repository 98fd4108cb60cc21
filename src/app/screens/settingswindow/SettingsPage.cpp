// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/settingswindow/SettingsPage.h"

#include "app/screens/elements/Divider.h"
#include "app/screens/elements/GroupPanel.h"
#include "app/screens/elements/TextStyle.h"

#include <QLabel>
#include <QVBoxLayout>

namespace tonearm {

namespace {

constexpr int padding = 12;
constexpr int sectionGap = 16;
constexpr int rowGap = 12;

} // namespace

SettingsPage::SettingsPage(QWidget *parent)
    : QWidget(parent)
    , m_column(new QVBoxLayout(this))
{
    m_column->setContentsMargins(padding, padding, padding, padding);
    m_column->setSpacing(sectionGap);
    m_column->addStretch(1);
}

void SettingsPage::addSection(const QString &title)
{
    m_section = new GroupPanel(title, this);
    m_section->content()->setSpacing(rowGap);
    m_column->insertWidget(m_column->count() - 1, m_section);
}

void SettingsPage::addRow(QWidget *row)
{
    if (m_section->content()->count() > 0)
        m_section->content()->addWidget(new Divider(this));
    m_section->content()->addWidget(row);
}

QLabel *makeExplanation(const QString &text, QWidget *parent)
{
    auto *label = new QLabel(text, parent);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    applyTextStyle(label, TextStyle::smallSecondary);
    return label;
}

} // namespace tonearm
