// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/elements/ButtonSpinner.h"

#include <QEvent>
#include <QStyle>

namespace tonearm {

ButtonSpinner::ButtonSpinner(QAbstractButton *button)
    : Spinner(button)
    , m_button(button)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
    button->installEventFilter(this);
    hide();
}

bool ButtonSpinner::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Resize || event->type() == QEvent::Paint)
        takePlace();
    return Spinner::eventFilter(watched, event);
}

void ButtonSpinner::takePlace()
{
    constexpr int gap = 6;
    const QString text = m_button->text();
    const int textWidth = text.isEmpty() ? 0 : m_button->fontMetrics().horizontalAdvance(text);
    const int left = text.isEmpty() ? (m_button->width() - width()) / 2
                                    : (m_button->width() - textWidth) / 2 - gap - width();
    const QRect place(QPoint(left, (m_button->height() - height()) / 2), size());
    move(QStyle::visualRect(m_button->layoutDirection(), m_button->rect(), place).topLeft());
}

} // namespace tonearm
