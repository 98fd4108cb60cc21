// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/elements/ElidedLabel.h"

#include "app/screens/elements/Tooltip.h"

#include <QHelpEvent>
#include <QPainter>
#include <QStyle>
#include <QToolTip>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

// A text's line ends would stretch the one line there is.
QString asOneLine(const QString &text)
{
    return text.simplified();
}

} // namespace

ElidedLabel::ElidedLabel(Qt::TextElideMode mode, QWidget *parent)
    : QLabel(parent)
    , m_mode(mode)
{
    setTextFormat(Qt::PlainText);
}

QSize ElidedLabel::minimumSizeHint() const
{
    const QMargins margins = contentsMargins();
    const QSize ellipsis(fontMetrics().horizontalAdvance(u"…"_s), fontMetrics().height());
    return ellipsis.grownBy(margins);
}

bool ElidedLabel::event(QEvent *event)
{
    if (event->type() != QEvent::ToolTip || fits())
        return QLabel::event(event);
    QToolTip::showText(static_cast<QHelpEvent *>(event)->globalPos(), plainTooltip(text()), this);
    return true;
}

void ElidedLabel::paintEvent(QPaintEvent * /*event*/)
{
    QPainter painter(this);
    const QString shown = fontMetrics().elidedText(asOneLine(text()), m_mode, contentsRect().width());
    style()->drawItemText(&painter, contentsRect(),
                          static_cast<int>(QStyle::visualAlignment(layoutDirection(), alignment())),
                          palette(), isEnabled(), shown, foregroundRole());
}

bool ElidedLabel::fits() const
{
    return fontMetrics().horizontalAdvance(asOneLine(text())) <= contentsRect().width();
}

} // namespace tonearm
