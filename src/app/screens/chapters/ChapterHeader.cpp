// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/chapters/ChapterHeader.h"

#include "app/screens/elements/TextStyle.h"

#include <QLabel>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

constexpr QMargins padding(2, 1, 2, 4);

} // namespace

ChapterHeader::ChapterHeader(const ChapterColumns &columns, QWidget *parent)
    : QWidget(parent)
    , m_columns(columns)
    , m_number(added(ChapterColumn::number, u"#"_s))
    , m_sourceTitle(added(ChapterColumn::sourceTitle, u"Chapter"_s))
    , m_length(added(ChapterColumn::length, u"Length"_s))
    , m_songTitle(added(ChapterColumn::songTitle, u"Song Title"_s))
{
}

void ChapterHeader::setSourceTitle(const QString &title)
{
    m_sourceTitle->setText(title);
}

void ChapterHeader::placeColumns()
{
    const QRect row = rect().marginsRemoved(padding);
    m_number->setGeometry(m_columns.place(ChapterColumn::number, row, layoutDirection()));
    m_sourceTitle->setGeometry(m_columns.place(ChapterColumn::sourceTitle, row, layoutDirection()));
    m_length->setGeometry(m_columns.place(ChapterColumn::length, row, layoutDirection()));
    m_songTitle->setGeometry(m_columns.place(ChapterColumn::songTitle, row, layoutDirection()));
}

QSize ChapterHeader::sizeHint() const
{
    return QSize(0, m_songTitle->sizeHint().height()).grownBy(padding);
}

void ChapterHeader::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    placeColumns();
}

QLabel *ChapterHeader::added(ChapterColumn column, const QString &text)
{
    auto *label = new QLabel(text, this);
    label->setTextFormat(Qt::PlainText);
    label->setAlignment(ChapterColumns::alignment(column));
    applyTextStyle(label, TextStyle::smallSecondary);
    return label;
}

} // namespace tonearm
