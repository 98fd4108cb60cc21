// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/elements/Banner.h"

#include "app/screens/elements/AccessibleRole.h"
#include "app/screens/elements/Motion.h"
#include "app/screens/elements/RoundedGround.h"

#include <QEvent>
#include <QGraphicsOpacityEffect>
#include <QPainter>
#include <QVBoxLayout>

namespace tonearm {

namespace {

constexpr int durationMilliseconds = 250;
constexpr double cornerRadius = 10;
constexpr double borderOpacity = 0.35;

} // namespace

class Banner::Panel final : public QWidget
{
public:
    Panel(const BannerLook &look, QWidget *parent)
        : QWidget(parent)
        , m_look(look)
    {
    }

    void setTone(Tone tone)
    {
        m_look.tone = tone;
        update();
    }

protected:
    void paintEvent(QPaintEvent * /*event*/) override
    {
        const QColor colour = toneColour(m_look.tone, palette());
        QPainter painter(this);
        paintRoundedGround(painter, rect(),
                           {faded(colour, borderOpacity), faded(colour, m_look.tintOpacity), cornerRadius});
    }

private:
    BannerLook m_look;
};

Banner::Banner(const BannerLook &look, QWidget *parent)
    : QWidget(parent)
    , m_panel(new Panel(look, this))
    , m_content(new QVBoxLayout(m_panel))
    , m_fade(new QGraphicsOpacityEffect(m_panel))
{
    setAccessibleRole(this, QAccessible::Grouping);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    m_content->setContentsMargins(look.padding);
    m_fade->setEnabled(false);
    m_fade->setOpacity(0);
    m_panel->setGraphicsEffect(m_fade);
    m_animation.setDuration(durationMilliseconds);
    m_animation.setStartValue(0.0);
    m_animation.setEndValue(1.0);
    m_animation.setEasingCurve(QEasingCurve::InOutQuad);
    connect(&m_animation, &QVariantAnimation::valueChanged, this,
            [this](const QVariant &value) { advance(value.toDouble()); });
    connect(&m_animation, &QVariantAnimation::finished, this, &Banner::settle);
    QWidget::hide();
}

void Banner::setShown(bool shown)
{
    if (shown == m_isShown)
        return;
    m_isShown = shown;
    // What leaves takes no clicks any more.
    m_panel->setAttribute(Qt::WA_TransparentForMouseEvents, !shown);
    const bool onScreen = parentWidget() && parentWidget()->isVisible();
    if (!onScreen || !wantsMotion(this)) {
        m_animation.stop();
        settle();
        return;
    }
    m_fade->setEnabled(true);
    m_animation.setDirection(shown ? QVariantAnimation::Forward : QVariantAnimation::Backward);
    // One that is turned round on its way goes back from where it is.
    if (m_animation.state() == QVariantAnimation::Stopped)
        m_animation.start();
    show();
}

void Banner::setTone(Tone tone)
{
    m_panel->setTone(tone);
}

int Banner::heightForWidth(int width) const
{
    return qRound(panelHeight(width) * m_progress);
}

QSize Banner::sizeHint() const
{
    const QSize full = m_panel->sizeHint();
    return {full.width(), qRound(full.height() * m_progress)};
}

QSize Banner::minimumSizeHint() const
{
    const QSize full = m_panel->minimumSizeHint();
    return {full.width(), qRound(full.height() * m_progress)};
}

bool Banner::event(QEvent *event)
{
    // The panel isn't in a layout, so what it asks for is passed on here.
    if (event->type() == QEvent::LayoutRequest) {
        updateGeometry();
        placePanel();
    }
    return QWidget::event(event);
}

void Banner::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    placePanel();
}

void Banner::advance(double progress)
{
    m_progress = progress;
    m_fade->setOpacity(progress);
    updateGeometry();
    placePanel();
}

void Banner::settle()
{
    m_fade->setEnabled(false);
    advance(m_isShown ? 1 : 0);
    setVisible(m_isShown);
}

// The panel keeps its full height and hangs by its lower edge, so that it comes from above.
void Banner::placePanel()
{
    const int full = qMax(panelHeight(width()), m_progress < 1 ? 0 : height());
    m_panel->setGeometry(0, height() - full, width(), full);
}

int Banner::panelHeight(int width) const
{
    return m_panel->layout()->hasHeightForWidth() ? m_panel->layout()->totalHeightForWidth(width)
                                                  : m_panel->sizeHint().height();
}

} // namespace tonearm
