// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/elements/GroupPanel.h"

#include "app/screens/elements/AccessibleRole.h"
#include "app/screens/elements/Colours.h"
#include "app/screens/elements/RoundedGround.h"
#include "app/screens/elements/TextStyle.h"

#include <QLabel>
#include <QPainter>
#include <QVBoxLayout>

namespace tonearm {

namespace {

constexpr int titleGap = 6;
constexpr int padding = 12;
constexpr double groundOpacity = 0.035;
constexpr double edgeOpacity = 0.14;

class Ground final : public QWidget
{
public:
    using QWidget::QWidget;

protected:
    void paintEvent(QPaintEvent * /*event*/) override
    {
        QPainter painter(this);
        const QColor text = palette().color(QPalette::WindowText);
        paintRoundedGround(painter, rect(), {faded(text, edgeOpacity), faded(text, groundOpacity)});
    }
};

QLabel *titleLabel(const QString &title, QWidget *parent)
{
    auto *label = new QLabel(title, parent);
    label->setTextFormat(Qt::PlainText);
    applyTextStyle(label, TextStyle::emphasised);
    setAccessibleRole(label, QAccessible::Heading);
    label->setAccessibleName(title);
    return label;
}

} // namespace

GroupPanel::GroupPanel(const QString &title, QWidget *parent)
    : QWidget(parent)
    , m_content(new QVBoxLayout)
{
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(titleGap);
    if (!title.isEmpty()) {
        setAccessibleRole(this, QAccessible::Grouping);
        setAccessibleName(title);
        column->addWidget(titleLabel(title, this));
    }
    auto *ground = new Ground(this);
    ground->setLayout(m_content);
    m_content->setContentsMargins(padding, padding, padding, padding);
    column->addWidget(ground);
}

} // namespace tonearm
