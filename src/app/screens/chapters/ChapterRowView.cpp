// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/chapters/ChapterRowView.h"

#include "app/screens/chapters/PreviewButton.h"
#include "app/screens/chapters/VerificationBadge.h"
#include "app/screens/elements/AccessibleRole.h"
#include "app/screens/elements/Colours.h"
#include "app/screens/elements/ElidedLabel.h"
#include "app/screens/elements/Icons.h"
#include "encoding/ChapterPreview.h"

#include <QFontMetrics>
#include <QLineEdit>
#include <QPainter>
#include <QSignalBlocker>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

constexpr QMargins rowPadding(2, 3, 2, 3);
constexpr int barHeight = 24;
constexpr double barRadius = 5;
constexpr double barOpacity = 0.08;
constexpr double signOpacity = 0.4;

// A square in the middle of a column's place.
QRect square(const QRect &place)
{
    QRect result(0, 0, place.width(), place.width());
    result.moveCenter(place.center());
    return result;
}

} // namespace

ChapterRowView::ChapterRowView(const ChapterColumns &columns, QWidget *parent)
    : QWidget(parent)
    , m_columns(columns)
    , m_preview(new PreviewButton(this))
    , m_number(new ElidedLabel(Qt::ElideRight, this))
    , m_sourceTitle(new ElidedLabel(Qt::ElideRight, this))
    , m_length(new ElidedLabel(Qt::ElideRight, this))
    , m_songTitle(new QLineEdit(this))
    , m_badge(new VerificationBadge(this))
{
    m_number->setAlignment(ChapterColumns::alignment(ChapterColumn::number));
    m_sourceTitle->setAlignment(ChapterColumns::alignment(ChapterColumn::sourceTitle));
    m_length->setAlignment(ChapterColumns::alignment(ChapterColumn::length));
    m_songTitle->setPlaceholderText(u"Song title"_s);
    // The table itself moves between the boxes and stands for them all in the window's Tab order.
    m_songTitle->setFocusPolicy(Qt::ClickFocus);
    // Not textEdited: an assistive tool that fills the box in doesn't type.
    connect(m_songTitle, &QLineEdit::textChanged, this, &ChapterRowView::songTitleEdited);
    connect(m_preview, &QAbstractButton::clicked, this, &ChapterRowView::previewToggled);
}

int ChapterRowView::heightIn(QWidget *list)
{
    // Only a text box knows how high one is in the list's style and font.
    const QLineEdit box(list);
    return std::max(box.sizeHint().height(), barHeight) + rowPadding.top() + rowPadding.bottom();
}

void ChapterRowView::showRow(int index, const ChapterTableRow &row)
{
    m_index = index;
    showTexts(row, QPalette::WindowText);
    // Even where the text is the same: what can be undone belongs to the row shown before.
    {
        const QSignalBlocker notAnEdit(m_songTitle);
        m_songTitle->setText(row.songTitle);
    }
    m_songTitle->setCursorPosition(0);
    m_songTitle->setAccessibleName(u"Song title for chapter %1"_s.arg(index + 1));
    m_songTitle->show();
    m_preview->setVisible(true);
    showState(row);
    setAccessibleName(u"Chapter %1"_s.arg(index + 1));
    setAccessibleRole(this, QAccessible::Grouping);
}

void ChapterRowView::showPlaceholder(int index)
{
    m_index = index;
    showTexts({QString::number(index + 1), u"—"_s, u"—"_s}, QPalette::PlaceholderText);
    m_songTitle->hide();
    m_preview->hide();
    m_badge->hide();
    setAccessibleName(QString());
    hideFromAssistiveTechnology(this);
}

void ChapterRowView::updateRow(const ChapterTableRow &row)
{
    setSongTitle(row.songTitle);
    showState(row);
}

void ChapterRowView::showState(const ChapterTableRow &row)
{
    m_preview->setState(row.preview, m_index + 1, chapterPreviewSeconds);
    m_preview->setEnabled(row.canPreview);
    m_badge->setVerification(row.verification);
}

void ChapterRowView::setSongTitle(const QString &title)
{
    if (m_songTitle->text() == title)
        return;
    const bool underway = m_songTitle->hasFocus();
    const int cursor = m_songTitle->cursorPosition();
    {
        const QSignalBlocker notAnEdit(m_songTitle);
        m_songTitle->setText(title);
    }
    // A long title shows its beginning, except where the user is in the midst of it.
    m_songTitle->setCursorPosition(underway ? cursor : 0);
}

void ChapterRowView::placeColumns()
{
    m_number->setFont(m_columns.digits());
    m_length->setFont(m_columns.digits());
    m_preview->setGeometry(square(place(ChapterColumn::preview)));
    m_badge->setGeometry(square(place(ChapterColumn::badge)));
    m_number->setGeometry(place(ChapterColumn::number));
    m_sourceTitle->setGeometry(place(ChapterColumn::sourceTitle));
    m_length->setGeometry(place(ChapterColumn::length));
    m_songTitle->setGeometry(place(ChapterColumn::songTitle));
}

void ChapterRowView::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    placeColumns();
}

void ChapterRowView::paintEvent(QPaintEvent * /*event*/)
{
    if (!m_songTitle->isHidden())
        return;
    QRect bar = place(ChapterColumn::songTitle);
    const QPoint centre = bar.center();
    bar.setHeight(barHeight);
    bar.moveCenter(centre);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(faded(toneColour(Tone::secondary, palette()), barOpacity));
    painter.drawRoundedRect(bar, barRadius, barRadius);
    painter.setOpacity(signOpacity);
    paintIcon(painter, square(place(ChapterColumn::preview)), IconName::play,
              toneColour(Tone::secondary, palette()));
}

QRect ChapterRowView::place(ChapterColumn column) const
{
    return m_columns.place(column, rect().marginsRemoved(rowPadding), layoutDirection());
}

void ChapterRowView::showTexts(const ChapterTableRow &row, QPalette::ColorRole role)
{
    for (QLabel *label : {m_number, m_sourceTitle, m_length})
        label->setForegroundRole(role);
    m_number->setText(row.number);
    m_sourceTitle->setText(row.sourceTitle);
    m_length->setText(row.length);
}

} // namespace tonearm
