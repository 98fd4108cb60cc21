// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/elements/ArtworkWindow.h"

#include "app/screens/elements/AccessibleRole.h"
#include "app/screens/elements/Divider.h"
#include "app/screens/elements/PlaceholderScreen.h"
#include "app/screens/elements/WindowFit.h"

#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QScreen>
#include <QScrollArea>
#include <QStackedWidget>
#include <QVBoxLayout>

#include <algorithm>

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

    void setPicture(const QImage &picture, const QSize &size)
    {
        m_picture = picture;
        resize(size);
        update();
    }

protected:
    void paintEvent(QPaintEvent * /*event*/) override
    {
        QPainter painter(this);
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        painter.drawImage(rect(), m_picture);
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
    m_picture->setPicture(artwork->picture, m_size.value_or(QSize(sideWhereUnknown, sideWhereUnknown)));
    m_summary->setText(artwork->summary);
    m_summary->setVisible(!artwork->summary.isEmpty());
    if (isVisible())
        fit();
}

void ArtworkWindow::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    if (m_places->currentIndex() == 1)
        fit();
}

void ArtworkWindow::fit()
{
    const QSize picture = m_size.value_or(QSize(sideWhereUnknown, sideWhereUnknown));
    const QSize margins = frameGeometry().size() - size();
    const std::optional<QRect> free = screen() ? std::optional(screen()->availableGeometry()) : std::nullopt;
    const QRect frame = fittedFrame(picture, frameGeometry(), margins, free);
    resize(frame.size() - margins);
    move(frame.topLeft());
}

} // namespace tonearm
