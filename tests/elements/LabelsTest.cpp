// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/elements/ElidedLabel.h"
#include "app/screens/elements/IconLabel.h"
#include "app/screens/elements/TextStyle.h"
#include "app/screens/elements/Tooltip.h"

#include "helpers/Printing.h"
#include "helpers/Rendering.h"
#include "helpers/Widgets.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QFontInfo>
#include <QHBoxLayout>
#include <QHelpEvent>
#include <QTextDocument>
#include <QToolTip>

namespace tonearm {

using namespace Qt::StringLiterals;
using namespace test;

namespace {

// Nothing where the widget has none to show.
std::optional<QString> tooltipOf(QWidget &widget)
{
    const QPoint centre = widget.rect().center();
    QHelpEvent event(QEvent::ToolTip, centre, widget.mapToGlobal(centre));
    event.accept();
    QApplication::sendEvent(&widget, &event);
    return event.isAccepted() ? std::optional(QToolTip::text()) : std::nullopt;
}

bool hasInk(const QImage &image, const QRect &area)
{
    const QRgb ground = image.pixel(image.width() - 1, image.height() - 1);
    for (int y = area.top(); y <= area.bottom(); ++y)
        for (int x = area.left(); x <= area.right(); ++x)
            if (image.pixel(x, y) != ground)
                return true;
    return false;
}

} // namespace

TEST(IconLabel, IsNamedByItsText)
{
    IconLabel label(IconName::warning);
    label.setText(u"Read <b> & more"_s);
    EXPECT_EQ(accessibleNameOf(label), u"Read <b> & more"_s);
}

TEST(IconLabel, DrawsItsIconBeforeTheText)
{
    IconLabel label(IconName::warning);
    label.resize(200, 24);
    const QImage image = rendered(label);
    EXPECT_TRUE(hasInk(image, QRect(0, 0, 16, 24)));
    EXPECT_FALSE(hasInk(image, QRect(20, 0, 180, 24)));
}

TEST(IconLabel, DrawsItsIconAtTheRightWhereThatIsWhereTextBegins)
{
    IconLabel label(IconName::warning);
    label.setLayoutDirection(Qt::RightToLeft);
    label.resize(200, 24);
    const QImage image = rendered(label).mirrored(true, false);
    EXPECT_TRUE(hasInk(image, QRect(0, 0, 16, 24)));
}

TEST(IconLabel, GrowsWithItsLines)
{
    IconLabel label(IconName::warning);
    label.setText(u"A notice of many words that will take more than one line"_s);
    EXPECT_GT(label.heightForWidth(150), label.heightForWidth(1000));
}

TEST(IconLabel, CanBeSelectable)
{
    IconLabel label(IconName::warning);
    label.setSelectable(true);
    EXPECT_TRUE(label.textInteractionFlags().testFlag(Qt::TextSelectableByMouse));
    label.setSelectable(false);
    EXPECT_FALSE(label.textInteractionFlags().testFlag(Qt::TextSelectableByMouse));
}

TEST(ElidedLabel, KeepsItsWholeTextAsItsName)
{
    ElidedLabel label(Qt::ElideRight);
    const QString text = u"A title far too long for its narrow place"_s;
    label.setText(text);
    label.resize(60, 20);
    EXPECT_EQ(label.text(), text);
    EXPECT_EQ(accessibleNameOf(label), text);
}

TEST(ElidedLabel, ShowsItsWholeTextAsATooltipOnlyWhereItIsShortened)
{
    ElidedLabel label(Qt::ElideRight);
    label.setText(u"A title <i>far</i> too long for its narrow place"_s);
    ASSERT_TRUE(showActive(label));
    label.resize(60, 20);
    EXPECT_EQ(tooltipOf(label), plainTooltip(label.text()));
    label.resize(1000, 20);
    EXPECT_EQ(tooltipOf(label), std::nullopt);
}

TEST(Tooltip, ShowsATextAsItIs)
{
    for (const QString &text : {u"A & B"_s, u"<b>bold</b> &amp; more"_s, u"two\nlines,  two spaces"_s}) {
        const QString tooltip = plainTooltip(text);
        EXPECT_TRUE(Qt::mightBeRichText(tooltip));
        QTextDocument document;
        document.setHtml(tooltip);
        EXPECT_EQ(document.toPlainText(), text);
    }
}

TEST(ElidedLabel, CanBecomeNarrow)
{
    ElidedLabel label(Qt::ElideMiddle);
    label.setText(QString(500, u'x'));
    EXPECT_LT(label.minimumSizeHint().width(), 50);
}

TEST(TextStyle, MakesSmallTextSmallerThanTheTextAround)
{
    QWidget window;
    QLabel label(&window);
    applyTextStyle(&label, TextStyle::small);
    EXPECT_LT(label.font().pointSizeF(), window.font().pointSizeF());
    QFont large = window.font();
    large.setPointSizeF(40);
    window.setFont(large);
    EXPECT_DOUBLE_EQ(label.font().pointSizeF(), 36) << "it follows a change";
}

TEST(TextStyle, SetsCalloutsBetweenTheBodyAndSmallText)
{
    const QFont around = QApplication::font();
    EXPECT_LT(fontOf(TextStyle::callout, around).pointSizeF(), around.pointSizeF());
    EXPECT_LT(fontOf(TextStyle::small, around).pointSizeF(),
              fontOf(TextStyle::calloutSecondary, around).pointSizeF());
}

TEST(TextStyle, FollowsTheLabelIntoAnotherWindow)
{
    QWidget window;
    QFont large = window.font();
    large.setPointSizeF(40);
    window.setFont(large);
    auto *label = new QLabel;
    applyTextStyle(label, TextStyle::small);
    auto *layout = new QHBoxLayout(&window);
    layout->addWidget(label);
    EXPECT_DOUBLE_EQ(label->font().pointSizeF(), 36);
}

TEST(TextStyle, MakesSecondaryTextPalerThanTheTextAroundInLightAndDark)
{
    const PaletteScope light(lightPalette());
    QWidget window;
    QLabel label(&window);
    applyTextStyle(&label, TextStyle::secondary);
    EXPECT_GT(label.palette().windowText().color().lightness(),
              window.palette().windowText().color().lightness());
    const PaletteScope dark(darkPalette());
    EXPECT_LT(label.palette().windowText().color().lightness(),
              window.palette().windowText().color().lightness());
    EXPECT_GT(label.palette().windowText().color().lightness(),
              window.palette().window().color().lightness());
}

TEST(TextStyle, HasAFontForWhatIsNoLabel)
{
    QFont around;
    around.setPixelSize(20);
    around.setItalic(true);
    const QFont small = fontOf(TextStyle::smallSecondary, around);
    EXPECT_NEAR(QFontInfo(small).pixelSize(), 18, 1);
    EXPECT_TRUE(small.italic());
}

TEST(TextStyle, MakesHeadingsBolder)
{
    QWidget window;
    QLabel label(&window);
    applyTextStyle(&label, TextStyle::heading);
    EXPECT_EQ(label.font().weight(), QFont::DemiBold);
    EXPECT_GT(label.font().pointSizeF(), window.font().pointSizeF());
}

} // namespace tonearm
