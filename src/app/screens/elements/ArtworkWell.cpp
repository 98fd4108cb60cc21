// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/elements/ArtworkWell.h"

#include "app/screens/elements/Icons.h"
#include "app/screens/elements/Spinner.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QPainter>

#include <utility>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

constexpr int pictureInset = 5;
constexpr int noteInset = 8;
constexpr int iconSide = 24;
constexpr int gap = 4;
constexpr double opacityBelowSpinner = 0.25;
constexpr double opacityWhileDisabled = 0.5;

// A smooth picture of `size` pixels. Most of the reduction skips pixels, so that even a large picture is
// ready between two frames.
QImage thumbnail(const QImage &picture, const QSize &size)
{
    constexpr int pixelsToEach = 4;
    const QSize between = size * pixelsToEach;
    const bool isMuchLarger = picture.width() > between.width() && picture.height() > between.height();
    const QImage reduced = isMuchLarger ? picture.scaled(between) : picture;
    return reduced.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

} // namespace

ArtworkWell::ArtworkWell(int side, OnDrop onDrop, FillMenu fillMenu, QWidget *parent)
    : FileDropArea(u"Cover art drop area"_s, std::move(onDrop), parent)
    , m_fillMenu(std::move(fillMenu))
    , m_spinner(new Spinner(this))
{
    setFixedSize(side, side);
    setFocusPolicy(Qt::StrongFocus);
    setContent({ArtworkWellContent::Empty{}});
}

void ArtworkWell::setContent(const ArtworkWellContent &content)
{
    m_content = content;
    m_painted = QImage();
    m_spinner->setVisible(isWaiting());
    setAccessibleDescription(contentDescription());
    update();
}

bool ArtworkWell::isWaiting() const
{
    const auto *image = std::get_if<ArtworkWellContent::Image>(&m_content.value);
    return image ? image->isBeingReplaced
                 : std::holds_alternative<ArtworkWellContent::Loading>(m_content.value);
}

QString ArtworkWell::contentDescription() const
{
    if (const auto *loading = std::get_if<ArtworkWellContent::Loading>(&m_content.value))
        return loading->description;
    if (isWaiting())
        return u"Fetching…"_s;
    if (const auto *empty = std::get_if<ArtworkWellContent::Empty>(&m_content.value))
        return empty->caption;
    if (const auto *conflicting = std::get_if<ArtworkWellContent::Conflicting>(&m_content.value))
        return conflicting->message;
    return u"Holds a picture"_s;
}

void ArtworkWell::paintEvent(QPaintEvent * /*event*/)
{
    QPainter painter(this);
    paintGround(painter);
    if (const auto *image = std::get_if<ArtworkWellContent::Image>(&m_content.value))
        paintPicture(painter, *image);
    else if (const auto *empty = std::get_if<ArtworkWellContent::Empty>(&m_content.value))
        paintNote(painter, empty->caption, false);
    else if (const auto *conflicting = std::get_if<ArtworkWellContent::Conflicting>(&m_content.value))
        paintNote(painter, conflicting->message, true);
}

void ArtworkWell::paintPicture(QPainter &painter, const ArtworkWellContent::Image &image)
{
    const QRectF area = QRectF(rect()).adjusted(pictureInset, pictureInset, -pictureInset, -pictureInset);
    const QSizeF size =
        QSizeF(image.picture.size()).scaled(area.size(), Qt::KeepAspectRatio).expandedTo({1, 1});
    QRectF place(QPointF(), size);
    place.moveCenter(area.center());
    const QSize pixels = (size * devicePixelRatioF()).toSize();
    if (m_painted.size() != pixels)
        m_painted = thumbnail(image.picture, pixels);
    if (image.isBeingReplaced)
        painter.setOpacity(opacityBelowSpinner);
    else if (!isEnabled())
        painter.setOpacity(opacityWhileDisabled);
    painter.drawImage(place, m_painted);
}

void ArtworkWell::paintNote(QPainter &painter, const QString &text, bool isWarning) const
{
    const QRect area = rect().adjusted(noteInset, noteInset, -noteInset, -noteInset);
    painter.setFont(font());
    const int flags = int(Qt::AlignHCenter) | Qt::AlignTop | Qt::TextWordWrap;
    const QRect needed = painter.boundingRect(area, flags, text);
    const int height = iconSide + gap + needed.height();
    const int top = area.top() + (area.height() - height) / 2;
    const QRect iconPlace(area.center().x() - iconSide / 2, top, iconSide, iconSide);
    const QPalette::ColorGroup group = isEnabled() ? QPalette::Active : QPalette::Disabled;
    paintIcon(painter, iconPlace, isWarning ? IconName::warning : IconName::picture,
              toneColour(isWarning ? Tone::warning : Tone::secondary, palette(), group));
    painter.setPen(toneColour(Tone::secondary, palette(), group));
    painter.drawText(QRect(area.left(), top + iconSide + gap, area.width(), needed.height()), flags, text);
}

void ArtworkWell::contextMenuEvent(QContextMenuEvent *event)
{
    const bool isFromKeyboard = event->reason() == QContextMenuEvent::Keyboard;
    popUpMenu(isFromKeyboard ? mapToGlobal(rect().center()) : event->globalPos());
}

void ArtworkWell::keyPressEvent(QKeyEvent *event)
{
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
        popUpMenu(mapToGlobal(rect().center()));
        break;
    default:
        FileDropArea::keyPressEvent(event);
    }
}

void ArtworkWell::resizeEvent(QResizeEvent * /*event*/)
{
    m_spinner->move((width() - m_spinner->width()) / 2, (height() - m_spinner->height()) / 2);
}

void ArtworkWell::popUpMenu(const QPoint &place)
{
    auto *menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->setAccessibleName(u"Cover art"_s);
    // Assistive tools pick an entry without going through the menu, which would stay open.
    connect(menu, &QMenu::triggered, menu, &QWidget::close);
    m_fillMenu(*menu);
    menu->popup(place);
}

} // namespace tonearm
