// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/elements/PathRow.h"

#include "app/screens/elements/IconView.h"
#include "app/screens/elements/TextStyle.h"
#include "app/screens/elements/Tooltip.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

constexpr int labelWidth = 100;
constexpr int gap = 8;

// Looks like a label; unlike one it never asks for more width than there is. What doesn't fit is left
// out in the middle, except while the user goes through it.
class PathText final : public QLineEdit
{
public:
    explicit PathText(QWidget *parent)
        : QLineEdit(parent)
    {
        setReadOnly(true);
        setFrame(false);
    }

protected:
    void paintEvent(QPaintEvent *event) override
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
};

} // namespace

PathRow::PathRow(const QString &label, QWidget *parent)
    : QWidget(parent)
    , m_row(new QHBoxLayout(this))
    , m_path(new PathText(this))
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
    setPath(std::nullopt);
}

void PathRow::addIcon(IconName name)
{
    m_row->insertWidget(1, new IconView(name, Tone::text, this));
}

void PathRow::setPath(const std::optional<QString> &path)
{
    m_isSet = path.has_value();
    m_path->setText(path.value_or(u"Not selected"_s));
    m_path->setCursorPosition(0);
    m_path->setToolTip(path ? plainTooltip(*path) : QString());
    updateColours();
}

void PathRow::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        updateColours();
}

void PathRow::updateColours()
{
    QPalette colours;
    colours.setColor(QPalette::Base, Qt::transparent);
    colours.setColor(QPalette::Text, toneColour(m_isSet ? Tone::text : Tone::secondary, palette()));
    m_path->setPalette(colours);
}

} // namespace tonearm
