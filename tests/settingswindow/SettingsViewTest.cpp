// SPDX-License-Identifier: GPL-3.0-or-later
// The window and its tabs.
#include "settingswindow/ShownSettings.h"

namespace tonearm {

using namespace Qt::StringLiterals;
using namespace test;

namespace {

struct SettingsViewTest : ShownSettings
{
    QStringList tabTitles()
    {
        QStringList titles;
        for (int index = 0; index < tabs().count(); ++index)
            titles.append(tabs().tabText(index));
        return titles;
    }

    // The labels of the open tab that have no room for all of their text.
    QStringList clippedTexts()
    {
        QStringList clipped;
        for (const QLabel *label : view().findChildren<QLabel *>()) {
            if (!label->isVisible() || label->text().isEmpty())
                continue;
            const int needed =
                label->wordWrap() ? label->heightForWidth(label->width()) : label->sizeHint().height();
            if (label->height() < needed)
                clipped.append(label->text());
        }
        return clipped;
    }
};

} // namespace

TEST_F(SettingsViewTest, IsCalledSettings)
{
    EXPECT_EQ(view().windowTitle(), u"Settings"_s);
}

TEST_F(SettingsViewTest, IsAsWideAsItShouldBe)
{
    EXPECT_EQ(view().width(), 540);
    EXPECT_EQ(view().minimumSize(), view().maximumSize()) << "it can't be resized";
}

TEST_F(SettingsViewTest, HasThreeTabsWithIcons)
{
    EXPECT_EQ(tabTitles(), (QStringList{u"File Output"_s, u"Audio CDs"_s, u"Metadata"_s}));
    const QList<IconName> icons = {IconName::folder, IconName::disc, IconName::metadataPage};
    for (int index = 0; index < icons.size(); ++index)
        EXPECT_EQ(tabs().tabIcon(index).pixmap(32).toImage(), icon(icons.at(index)).pixmap(32).toImage());
    EXPECT_EQ(tabs().currentIndex(), 0);
}

TEST_F(SettingsViewTest, HasRoomForAllItsTexts)
{
    for (const QString &title : tabTitles()) {
        showTab(title);
        EXPECT_EQ(clippedTexts(), QStringList());
    }
}

TEST_F(SettingsViewTest, GrowsWithTheFont)
{
    const int before = view().height();
    QFont large = view().font();
    large.setPointSizeF(large.pointSizeF() * 1.6);
    view().setFont(large);
    ASSERT_TRUE(eventually([&] { return view().height() > before; }));
    EXPECT_EQ(view().minimumSize(), view().maximumSize());
    for (const QString &title : tabTitles()) {
        showTab(title);
        EXPECT_TRUE(eventually([this] { return clippedTexts().isEmpty(); }))
            << clippedTexts().join(u'\n').toStdString();
    }
}

TEST_F(SettingsViewTest, IsClosedByKeys)
{
    press(Qt::Key_Escape);
    EXPECT_FALSE(view().isVisible());
    ASSERT_TRUE(showActive(view()));
    press(Qt::Key_W, Qt::ControlModifier);
    EXPECT_FALSE(view().isVisible());
}

TEST_F(SettingsViewTest, LeadsThroughItsTabsByKeyboard)
{
    press(Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_EQ(tabs().currentIndex(), 1);
    press(Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_EQ(tabs().currentIndex(), 2);
    press(Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_EQ(tabs().currentIndex(), 0);
}

TEST_F(SettingsViewTest, NamesWhatTakesTheKeyboard)
{
    for (const QString &title : tabTitles()) {
        showTab(title);
        QStringList names;
        for (QWidget *widget : view().findChildren<QWidget *>())
            if (widget->isVisible() && (widget->focusPolicy() & Qt::TabFocus) && !widget->focusProxy())
                names.append(accessibleNameOf(*widget));
        EXPECT_GT(names.size(), 1);
        EXPECT_FALSE(names.contains(QString())) << title.toStdString();
    }
}

} // namespace tonearm
