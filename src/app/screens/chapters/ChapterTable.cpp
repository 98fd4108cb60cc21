// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/chapters/ChapterTable.h"

#include "app/screens/chapters/ChapterList.h"
#include "app/screens/elements/AccessibleRole.h"
#include "app/screens/elements/Colours.h"
#include "app/screens/elements/RoundedGround.h"

#include <QPainter>
#include <QVBoxLayout>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

constexpr int padding = 6;
constexpr double borderOpacity = 0.25;

} // namespace

ChapterTable::ChapterTable(QWidget *parent)
    : QWidget(parent)
    , m_list(new ChapterList(this))
{
    setAccessibleName(u"Song titles"_s);
    setAccessibleRole(this, QAccessible::Grouping);
    setFocusProxy(m_list);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(padding, padding, padding, padding);
    column->addWidget(m_list);
    connect(m_list, &ChapterList::songTitleEdited, this, &ChapterTable::songTitleEdited);
    connect(m_list, &ChapterList::previewToggled, this, &ChapterTable::previewToggled);
}

void ChapterTable::setSourceTitleHeader(const QString &title)
{
    m_list->setSourceTitleHeader(title);
}

void ChapterTable::setRows(const QList<ChapterTableRow> &rows)
{
    m_list->setRows(rows);
}

void ChapterTable::paintEvent(QPaintEvent * /*event*/)
{
    QPainter painter(this);
    paintRoundedGround(painter, rect(), {faded(toneColour(Tone::text, palette()), borderOpacity)});
}

} // namespace tonearm
