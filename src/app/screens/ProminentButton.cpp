// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/ProminentButton.h"

#include <QApplication>
#include <QEvent>

namespace tonearm {

ProminentButton::ProminentButton(const QString &text, QWidget *parent)
    : QPushButton(text, parent)
{
    updateColours();
}

void ProminentButton::changeEvent(QEvent *event)
{
    QPushButton::changeEvent(event);
    const bool matters = event->type() == QEvent::PaletteChange || event->type() == QEvent::EnabledChange;
    if (matters && !m_isUpdating)
        updateColours();
}

void ProminentButton::updateColours()
{
    m_isUpdating = true;
    QPalette colours;
    if (isEnabled()) {
        const QPalette all = QApplication::palette();
        colours.setBrush(QPalette::Button, all.brush(QPalette::Active, QPalette::Highlight));
        colours.setBrush(QPalette::ButtonText, all.brush(QPalette::Active, QPalette::HighlightedText));
    }
    setPalette(colours);
    m_isUpdating = false;
}

} // namespace tonearm
