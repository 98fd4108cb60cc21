// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/elements/FileDropArea.h"

#include "app/screens/elements/AccessibleRole.h"
#include "app/screens/elements/Colours.h"
#include "app/screens/elements/RoundedGround.h"

#include <QDragEnterEvent>
#include <QMimeData>
#include <QPainter>

#include <optional>
#include <utility>

namespace tonearm {

namespace {

constexpr double restingFill = 0.04;
constexpr double restingBorder = 0.25;
constexpr double targetedFill = 0.16;

std::optional<QUrl> firstFile(const QMimeData *data)
{
    const QList<QUrl> urls = data->urls();
    if (urls.isEmpty() || !urls.first().isLocalFile())
        return std::nullopt;
    return urls.first();
}

} // namespace

FileDropArea::FileDropArea(const QString &accessibleName, OnDrop onDrop, QWidget *parent)
    : QWidget(parent)
    , m_onDrop(std::move(onDrop))
{
    setAccessibleRole(this, QAccessible::Grouping);
    setAccessibleName(accessibleName);
    setAcceptDrops(true);
}

void FileDropArea::dragEnterEvent(QDragEnterEvent *event)
{
    // Unlike a click, a drag reaches what is disabled.
    if (!isEnabled() || !firstFile(event->mimeData()))
        return event->ignore();
    event->acceptProposedAction();
    setTargeted(true);
}

void FileDropArea::dragLeaveEvent(QDragLeaveEvent * /*event*/)
{
    setTargeted(false);
}

void FileDropArea::dropEvent(QDropEvent *event)
{
    setTargeted(false);
    const std::optional<QUrl> file = firstFile(event->mimeData());
    if (!isEnabled() || !file || !m_onDrop(*file))
        return event->ignore();
    // Never a move, after which some programs delete the file.
    event->setDropAction(Qt::CopyAction);
    event->accept();
}

void FileDropArea::paintGround(QPainter &painter) const
{
    const QColor text =
        toneColour(Tone::text, palette(), isEnabled() ? QPalette::Active : QPalette::Disabled);
    const QColor highlight = palette().color(QPalette::Highlight);
    const bool stands = m_isTargeted || hasFocus();
    const QPen edge = stands ? QPen(highlight, 2) : QPen(faded(text, restingBorder), 1);
    const QColor fill = m_isTargeted ? faded(highlight, targetedFill) : faded(text, restingFill);
    paintRoundedGround(painter, rect(), {edge, fill});
}

void FileDropArea::setTargeted(bool targeted)
{
    m_isTargeted = targeted;
    update();
}

} // namespace tonearm
