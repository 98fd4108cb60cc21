// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/elements/SelectablePath.h"

#include "app/screens/elements/Colours.h"
#include "app/screens/elements/Tooltip.h"

#include <QEvent>
#include <QPainter>

namespace tonearm {

SelectablePath::SelectablePath(const QString &wordsWithout, QWidget *parent)
    : QLineEdit(parent)
    , m_wordsWithout(wordsWithout)
{
    setReadOnly(true);
    setFrame(false);
    listenToParent();
    setPath(std::nullopt);
}

void SelectablePath::setPath(const std::optional<QString> &path)
{
    m_isSet = path.has_value();
    setText(path.value_or(m_wordsWithout));
    // There is nothing to do with the words, so Tab passes them.
    setFocusPolicy(path ? Qt::StrongFocus : Qt::NoFocus);
    setCursorPosition(0);
    if (path) {
        setLongTooltip(this, *path);
    } else {
        setToolTip({});
        setAccessibleDescription({});
    }
    updateColours();
}

QSize SelectablePath::sizeHint() const
{
    return {QLineEdit::sizeHint().width(), fontMetrics().height()};
}

QSize SelectablePath::minimumSizeHint() const
{
    return {QLineEdit::minimumSizeHint().width(), fontMetrics().height()};
}

bool SelectablePath::event(QEvent *event)
{
    if (event->type() == QEvent::ParentChange) {
        listenToParent();
        updateColours();
    }
    return QLineEdit::event(event);
}

// What has colours of its own hears nothing when those around it change.
bool SelectablePath::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == parentWidget() && event->type() == QEvent::PaletteChange)
        updateColours();
    return QLineEdit::eventFilter(watched, event);
}

void SelectablePath::listenToParent()
{
    if (parentWidget())
        parentWidget()->installEventFilter(this);
}

void SelectablePath::updateColours()
{
    const QPalette around = parentWidget() ? parentWidget()->palette() : QPalette();
    QPalette colours;
    colours.setColor(QPalette::Base, Qt::transparent);
    colours.setColor(QPalette::Text, toneColour(m_isSet ? Tone::text : Tone::secondary, around));
    setPalette(colours);
}

void SelectablePath::paintEvent(QPaintEvent *event)
{
    // Qt's own, between the edge and the text.
    constexpr int edge = 2;
    const QRect place = rect().adjusted(edge, 0, -edge, 0);
    if (hasFocus() || fontMetrics().horizontalAdvance(text()) <= place.width()) {
        QLineEdit::paintEvent(event);
        return;
    }
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::Text));
    painter.drawText(place, Qt::AlignLeading | Qt::AlignVCenter,
                     fontMetrics().elidedText(text(), Qt::ElideMiddle, place.width()));
}

} // namespace tonearm
