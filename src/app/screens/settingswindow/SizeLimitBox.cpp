// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/settingswindow/SizeLimitBox.h"

#include "app/screens/elements/Bind.h"
#include "app/settings/AppSettings.h"
#include "support/Numbers.h"

#include <QKeyEvent>
#include <QRegularExpressionValidator>

#include <algorithm>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

constexpr int boxWidth = 70;

// No more digits than a 64-bit number holds.
QValidator *makeValidator(QObject *parent)
{
    return new QRegularExpressionValidator(QRegularExpression(u"[0-9]{0,18}"_s), parent);
}

} // namespace

SizeLimitBox::SizeLimitBox(AppSettings &settings, QWidget *parent)
    : QLineEdit(parent)
    , m_settings(settings)
{
    setFixedWidth(boxWidth);
    setAlignment(Qt::AlignRight);
    setValidator(makeValidator(this));
    showSetting();
    bind(
        this, [&settings] { return settings.artworkSizeBudgetKilobytes(); },
        [](SizeLimitBox *box, qint64) { box->followSetting(); });
    connect(this, &QLineEdit::editingFinished, this, &SizeLimitBox::takeUp);
    // An assistive tool that fills the box in doesn't go through it.
    connect(this, &QLineEdit::textChanged, this, [this] {
        if (!hasFocus())
            takeUp();
    });
}

bool SizeLimitBox::canStep(const AppSettings &settings, int direction)
{
    const qint64 size = settings.artworkSizeBudgetKilobytes();
    return direction > 0 ? size < AppSettings::largestArtworkBudget
                         : size > AppSettings::smallestArtworkBudget;
}

void SizeLimitBox::step(int direction)
{
    takeUp();
    if (!canStep(m_settings, direction))
        return;
    const qint64 size = m_settings.artworkSizeBudgetKilobytes() + direction * stepSize;
    m_settings.setArtworkSizeBudgetKilobytes(
        std::clamp(size, AppSettings::smallestArtworkBudget, AppSettings::largestArtworkBudget));
}

bool SizeLimitBox::event(QEvent *event)
{
    // Else the window's own Escape would come first.
    if (event->type() == QEvent::ShortcutOverride && isTakingBack(*static_cast<QKeyEvent *>(event))) {
        event->accept();
        return true;
    }
    return QLineEdit::event(event);
}

void SizeLimitBox::keyPressEvent(QKeyEvent *event)
{
    if (isTakingBack(*event))
        showSetting();
    else if (event->key() == Qt::Key_Up)
        step(1);
    else if (event->key() == Qt::Key_Down)
        step(-1);
    else
        QLineEdit::keyPressEvent(event);
}

bool SizeLimitBox::isTakingBack(const QKeyEvent &event) const
{
    return event.key() == Qt::Key_Escape && holdsTyping();
}

void SizeLimitBox::takeUp()
{
    if (!holdsTyping())
        return;
    if (const std::optional<qint64> typed = parseInteger(text()))
        m_settings.setArtworkSizeBudgetKilobytes(*typed);
    showSetting();
}

void SizeLimitBox::showSetting()
{
    m_shown = QString::number(m_settings.artworkSizeBudgetKilobytes());
    setText(m_shown);
}

// What the user is typing isn't taken away when the setting changes elsewhere.
void SizeLimitBox::followSetting()
{
    if (!holdsTyping())
        showSetting();
}

} // namespace tonearm
