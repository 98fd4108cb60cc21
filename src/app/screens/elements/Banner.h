// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/screens/elements/Colours.h"

#include <QMargins>
#include <QVariantAnimation>
#include <QWidget>

class QGraphicsOpacityEffect;
class QVBoxLayout;

namespace tonearm {

/// How a banner looks.
struct BannerLook
{
    Tone tone = Tone::information;
    double tintOpacity = 0.1;
    QMargins padding = {12, 8, 12, 8};

    bool operator==(const BannerLook &) const = default;
};

/// A tinted panel that tells the user something and goes again. It slides in from above and fades in,
/// and leaves the same way; where it isn't on screen yet, or the desktop wants no animations, it comes
/// and goes at once. Hidden at first.
class Banner : public QWidget
{
    Q_OBJECT

public:
    explicit Banner(const BannerLook &look, QWidget *parent = nullptr);

    /// Where the banner's content goes, top to bottom.
    QVBoxLayout *content() const { return m_content; }

    /// Whether the banner is there or coming, as against gone or leaving.
    bool isShown() const { return m_isShown; }

    void setShown(bool shown);

    void setTone(Tone tone);

    bool hasHeightForWidth() const override { return true; }

    int heightForWidth(int width) const override;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    bool event(QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    class Panel;

    void advance(double progress);
    void settle();
    void placePanel();
    int panelHeight(int width) const;

    Panel *m_panel;
    QVBoxLayout *m_content;
    QGraphicsOpacityEffect *m_fade;
    QVariantAnimation m_animation;
    double m_progress = 0;
    bool m_isShown = false;
};

} // namespace tonearm
