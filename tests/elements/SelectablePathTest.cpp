// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/elements/SelectablePath.h"

#include "app/screens/elements/Colours.h"
#include "app/screens/elements/Tooltip.h"
#include "helpers/Printing.h"
#include "helpers/Rendering.h"
#include "helpers/Widgets.h"

#include <gtest/gtest.h>

#include <QLabel>

namespace tonearm {

using namespace Qt::StringLiterals;
using namespace test;

namespace {

struct SelectablePathTest : testing::Test
{
    QColor colour() const { return path.palette().color(QPalette::Text); }

    QWidget window;
    SelectablePath path{u"Nowhere"_s, &window};
};

} // namespace

TEST_F(SelectablePathTest, HasWordsInThePlaceOfAPath)
{
    EXPECT_EQ(path.text(), u"Nowhere"_s);
    EXPECT_EQ(path.toolTip(), QString());
    EXPECT_EQ(colour(), toneColour(Tone::secondary, window.palette()));
    path.setPath(u"/a/<b>"_s);
    EXPECT_EQ(path.text(), u"/a/<b>"_s);
    EXPECT_EQ(path.toolTip(), plainTooltip(u"/a/<b>"_s));
    EXPECT_EQ(path.accessibleDescription(), u"/a/<b>"_s) << "without what wraps the tooltip";
    EXPECT_EQ(colour(), toneColour(Tone::text, window.palette()));
    path.setPath(std::nullopt);
    EXPECT_EQ(path.toolTip(), QString());
    EXPECT_EQ(path.accessibleDescription(), QString());
}

TEST_F(SelectablePathTest, IsPassedByTabWithoutAPath)
{
    EXPECT_EQ(path.focusPolicy(), Qt::NoFocus);
    path.setPath(u"/a"_s);
    EXPECT_EQ(path.focusPolicy(), Qt::StrongFocus);
    path.setPath(std::nullopt);
    EXPECT_EQ(path.focusPolicy(), Qt::NoFocus);
}

TEST_F(SelectablePathTest, IsAsHighAsALabel)
{
    EXPECT_EQ(path.sizeHint().height(), QLabel(u"Nowhere"_s, &window).sizeHint().height());
    EXPECT_EQ(path.minimumSizeHint().height(), path.sizeHint().height());
}

TEST_F(SelectablePathTest, FollowsThePaletteAround)
{
    for (const QPalette &palette : {darkPalette(), lightPalette()}) {
        window.setPalette(palette);
        EXPECT_EQ(colour(), toneColour(Tone::secondary, palette));
    }
}

TEST_F(SelectablePathTest, ShowsBothEndsOfWhatDoesNotFit)
{
    window.resize(300, 40);
    path.setGeometry(0, 0, 200, 30);
    ASSERT_TRUE(showActive(window));
    path.setPath(u'/' + QString(300, u'i'));
    window.setFocus();
    const QImage same = rendered(path);
    path.setPath(u'/' + QString(299, u'i') + u'W');
    EXPECT_NE(rendered(path), same);
    path.setPath(u"/W"_s + QString(299, u'i'));
    EXPECT_NE(rendered(path), same);
}

} // namespace tonearm
