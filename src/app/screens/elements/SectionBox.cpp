// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/elements/SectionBox.h"

#include "app/screens/elements/AccessibleRole.h"
#include "app/screens/elements/TextStyle.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLocale>
#include <QPainter>
#include <QVBoxLayout>

namespace tonearm {

namespace {

constexpr int discSide = 18;
constexpr int headerSpacing = 8;
constexpr int contentSpacing = 10;
constexpr double numberShareOfDisc = 0.62;

class NumberDisc final : public QWidget
{
public:
    NumberDisc(int number, QWidget *parent)
        : QWidget(parent)
        , m_number(number)
    {
        setFixedSize(discSide, discSide);
    }

protected:
    void paintEvent(QPaintEvent * /*event*/) override
    {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(palette().windowText());
        painter.drawEllipse(rect());
        QFont bold = font();
        bold.setPixelSize(qRound(discSide * numberShareOfDisc));
        bold.setBold(true);
        painter.setFont(bold);
        painter.setPen(palette().color(QPalette::Window));
        painter.drawText(rect(), Qt::AlignCenter, locale().toString(m_number));
    }

private:
    int m_number;
};

} // namespace

SectionBox::SectionBox(int number, const QString &title, QWidget *parent)
    : QWidget(parent)
    , m_title(new QLabel(this))
    , m_content(new QVBoxLayout)
{
    m_title->setTextFormat(Qt::PlainText);
    applyTextStyle(m_title, TextStyle::heading);
    setAccessibleRole(m_title, QAccessible::Heading);
    setAccessibleRole(this, QAccessible::Grouping);

    auto *header = new QHBoxLayout;
    header->setSpacing(headerSpacing);
    header->addWidget(new NumberDisc(number, this));
    header->addWidget(m_title, 1);

    m_content->setSpacing(contentSpacing);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(contentSpacing);
    column->addLayout(header);
    column->addLayout(m_content, 1);
    setTitle(title);
}

QString SectionBox::title() const
{
    return m_title->text();
}

void SectionBox::setTitle(const QString &title)
{
    m_title->setText(title);
    m_title->setAccessibleName(title);
    setAccessibleName(title);
}

} // namespace tonearm
