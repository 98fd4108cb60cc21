// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/elements/TextStyle.h"

#include <QApplication>
#include <QEvent>
#include <QFontInfo>
#include <QLabel>

#include <optional>

namespace tonearm {

namespace {

constexpr double headingSize = 1.15;
constexpr double calloutSize = 0.95;
constexpr double smallSize = 0.9;

double relativeSize(TextStyle style)
{
    switch (style) {
    case TextStyle::heading:
        return headingSize;
    case TextStyle::callout:
    case TextStyle::calloutSecondary:
        return calloutSize;
    case TextStyle::small:
    case TextStyle::smallSecondary:
        return smallSize;
    case TextStyle::body:
    case TextStyle::emphasised:
    case TextStyle::secondary:
        return 1;
    }
    Q_UNREACHABLE();
}

// Nothing where a style leaves the colour as it is.
std::optional<Tone> toneOf(TextStyle style)
{
    const bool isSecondary = style == TextStyle::secondary || style == TextStyle::calloutSecondary ||
                             style == TextStyle::smallSecondary;
    return isSecondary ? std::optional(Tone::secondary) : std::nullopt;
}

// A font may be sized in pixels, and then has no size in points of its own.
double pointSize(const QFont &font)
{
    return font.pointSizeF() > 0 ? font.pointSizeF() : QFontInfo(font).pointSizeF();
}

// A font with nothing set but what the style changes, so that the rest goes on being inherited.
QFont styledFont(TextStyle style, const QFont &around)
{
    QFont font;
    if (relativeSize(style) != 1)
        font.setPointSizeF(pointSize(around) * relativeSize(style));
    if (style == TextStyle::heading || style == TextStyle::emphasised)
        font.setWeight(QFont::DemiBold);
    return font;
}

// A label that has a size and a colour of its own hears nothing when those of its parent change, so
// the parent is listened to as well.
class StyleKeeper final : public QObject
{
public:
    StyleKeeper(QLabel *label, TextStyle style, std::optional<Tone> tone)
        : QObject(label)
        , m_label(label)
        , m_style(style)
        , m_tone(tone)
    {
        label->installEventFilter(this);
        listenToParent();
        apply();
    }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        switch (event->type()) {
        case QEvent::ParentChange:
            if (watched == m_label) {
                listenToParent();
                apply();
            }
            break;
        case QEvent::FontChange:
        case QEvent::PaletteChange:
            if (watched == m_label->parentWidget())
                apply();
            break;
        default:
            break;
        }
        return false;
    }

private:
    void listenToParent()
    {
        if (QWidget *parent = m_label->parentWidget())
            parent->installEventFilter(this);
    }

    void apply()
    {
        const QWidget *parent = m_label->parentWidget();
        m_label->setFont(styledFont(m_style, parent ? parent->font() : QApplication::font()));
        if (m_tone)
            applyColour(*m_tone, parent ? parent->palette() : QApplication::palette());
    }

    void applyColour(Tone tone, const QPalette &around)
    {
        QPalette palette;
        for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled})
            palette.setColor(group, QPalette::WindowText, toneColour(tone, around, group));
        m_label->setPalette(palette);
    }

    QLabel *m_label;
    TextStyle m_style;
    std::optional<Tone> m_tone;
};

} // namespace

QFont fontOf(TextStyle style, const QFont &around)
{
    return styledFont(style, around).resolve(around);
}

void applyTextStyle(QLabel *label, TextStyle style)
{
    new StyleKeeper(label, style, toneOf(style));
}

void applyTextStyle(QLabel *label, TextStyle style, Tone tone)
{
    new StyleKeeper(label, style, tone);
}

} // namespace tonearm
