// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/elements/ArtworkWindow.h"

#include "app/screens/elements/AccessibleRole.h"
#include "app/screens/elements/CloseKeys.h"
#include "app/screens/elements/Divider.h"
#include "app/screens/elements/PlaceholderScreen.h"

#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QScreen>
#include <QScrollArea>
#include <QStackedWidget>
#include <QVBoxLayout>
#include <QWindow>

#include <algorithm>
#include <cstdlib>

namespace tonearm {

namespace {

constexpr QSize defaultSize(620, 680);
constexpr QSize smallestSize(300, 260);
// Around the picture, and for the line below it.
constexpr QSize roomBeside(20, 20 + 44);
constexpr double largestShareOfScreen = 0.9;
constexpr int sideWhereUnknown = 600;
constexpr int summaryPadding = 10;
// What a file tells of its picture may be nonsense; far beyond any picture that can be decoded.
constexpr qint64 largestSide = 100'000;

// Rounding may take a pixel from a side.
bool isNearly(const QSize &size, const QSize &other)
{
    return std::abs(size.width() - other.width()) <= 1 && std::abs(size.height() - other.height()) <= 1;
}

} // namespace

// Works on no more of a picture than is in view, so that a large one is ready between two frames.
class ArtworkWindow::PictureView : public QWidget
{
public:
    explicit PictureView(const QString &name)
    {
        setAccessibleRole(this, QAccessible::Graphic);
        setAccessibleName(name);
    }

    // Whether that changes anything.
    bool setPicture(const QImage &picture, const QSize &size)
    {
        if (picture == m_picture && size == this->size())
            return false;
        m_picture = picture;
        resize(size);
        update();
        return true;
    }

protected:
    void paintEvent(QPaintEvent * /*event*/) override
    {
        QPainter painter(this);
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        // Where its size isn't known, the place is a square and the picture may not be.
        QRect place(QPoint(), m_picture.size().scaled(size(), Qt::KeepAspectRatio));
        place.moveCenter(rect().center());
        painter.drawImage(isNearly(place.size(), size()) ? rect() : place, m_picture);
    }

private:
    QImage m_picture;
};

std::optional<QSize> uprightSize(const QImage &picture, qint64 pixelWidth, qint64 pixelHeight)
{
    const qint64 longest = std::min<qint64>(std::max(pixelWidth, pixelHeight), largestSide);
    if (longest <= 0)
        return std::nullopt;
    return picture.size().scaled(int(longest), int(longest), Qt::KeepAspectRatio).expandedTo({1, 1});
}

QRect fittedFrame(const QSize &picture, const QRect &frame, const QSize &margins,
                  const std::optional<QRect> &screen)
{
    QSize content = picture + roomBeside;
    if (screen)
        content = content.boundedTo(screen->size() * largestShareOfScreen);
    content = content.expandedTo(smallestSize);
    QRect fitted(frame.topLeft(), content + margins);
    if (!screen)
        return fitted;
    fitted.moveLeft(std::max(screen->left(), std::min(fitted.left(), screen->right() + 1 - fitted.width())));
    fitted.moveTop(std::max(screen->top(), std::min(fitted.top(), screen->bottom() + 1 - fitted.height())));
    return fitted;
}

ArtworkWindow::ArtworkWindow(const QString &title, const ArtworkPlaceholder &placeholder)
    : m_places(new QStackedWidget(this))
{
    setWindowTitle(title);
    setAccessibleRole(this, QAccessible::Window);
    setMinimumSize(smallestSize);
    resize(defaultSize);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(m_places);
    m_places->addWidget(
        new PlaceholderScreen({IconName::picture, placeholder.title, placeholder.text}, this));
    m_places->addWidget(makePictureView());
    addCloseKeys(this);
}

QWidget *ArtworkWindow::makePictureView()
{
    auto *place = new QWidget(this);
    m_picture = new PictureView(windowTitle());
    auto *area = new QScrollArea(place);
    area->setFrameShape(QFrame::NoFrame);
    area->setAlignment(Qt::AlignCenter);
    area->setAccessibleName(windowTitle());
    setAccessibleRole(area, QAccessible::Pane);
    area->setWidget(m_picture);
    m_summary = new QLabel(place);
    m_summary->setTextFormat(Qt::PlainText);
    m_summary->setAlignment(Qt::AlignCenter);
    m_summary->setWordWrap(true);
    m_summary->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    m_summary->setContentsMargins(summaryPadding, summaryPadding, summaryPadding, summaryPadding);
    auto *column = new QVBoxLayout(place);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(area, 1);
    column->addWidget(new Divider(place));
    column->addWidget(m_summary);
    return place;
}

void ArtworkWindow::setArtwork(const std::optional<ViewedArtwork> &artwork)
{
    m_places->setCurrentIndex(artwork ? 1 : 0);
    m_size = artwork ? artwork->size : std::nullopt;
    if (!artwork) {
        m_picture->setPicture({}, {});
        m_summary->clear();
        return;
    }
    m_summary->setText(artwork->summary);
    m_summary->setVisible(!artwork->summary.isEmpty());
    const bool isAnother =
        m_picture->setPicture(artwork->picture, m_size.value_or(QSize(sideWhereUnknown, sideWhereUnknown)));
    if (isAnother && isVisible())
        fit();
}

void ArtworkWindow::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    // A window that comes back keeps what the user made of it.
    if (!event->spontaneous() && m_places->currentIndex() == 1)
        fit();
}

void ArtworkWindow::fit()
{
    if (isMaximized() || isFullScreen())
        return;
    const QSize picture = m_size.value_or(QSize(sideWhereUnknown, sideWhereUnknown));
    const QSize margins = frameGeometry().size() - size();
    const std::optional<QRect> free = screen() ? std::optional(screen()->availableGeometry()) : std::nullopt;
    const QRect frame = fittedFrame(picture, frameGeometry(), margins, free);
    resize(frame.size() - margins);
    // Where a window opens is the desktop's business.
    if (windowHandle()->isExposed())
        move(frame.topLeft());
}

} // namespace tonearm
