// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/elements/PathRow.h"

#include "app/screens/elements/IconView.h"
#include "app/screens/elements/SelectablePath.h"
#include "app/screens/elements/TextStyle.h"

#include <QHBoxLayout>
#include <QLabel>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

constexpr int labelWidth = 100;
constexpr int gap = 8;

} // namespace

PathRow::PathRow(const QString &label, QWidget *parent)
    : QWidget(parent)
    , m_row(new QHBoxLayout(this))
    , m_path(new SelectablePath(u"Not selected"_s, this))
{
    auto *name = new QLabel(label, this);
    name->setFixedWidth(labelWidth);
    applyTextStyle(name, TextStyle::emphasised);
    name->setBuddy(m_path);
    m_path->setAccessibleName(label);
    // Screen readers walk in this order.
    name->stackUnder(m_path);

    m_row->setContentsMargins(0, 0, 0, 0);
    m_row->setSpacing(gap);
    m_row->addWidget(name);
    m_row->addWidget(m_path, 1);
}

void PathRow::addIcon(IconName name)
{
    m_row->insertWidget(1, new IconView(name, Tone::text, this));
}

void PathRow::setPath(const std::optional<QString> &path)
{
    m_path->setPath(path);
}

} // namespace tonearm
