// SPDX-License-Identifier: GPL-3.0-or-later
// The size limit of artwork: a box, its unit, and a stepper.
#include "settingswindow/ShownSettings.h"

#include "app/screens/elements/Colours.h"

#include <QAccessible>
#include <QApplication>
#include <QCheckBox>
#include <QLineEdit>
#include <QToolButton>

namespace tonearm {

using namespace Qt::StringLiterals;
using namespace test;

namespace {

struct SizeLimitTest : ShownSettings
{
    SizeLimitTest() { showTab(u"Metadata"_s); }

    QLineEdit &box() { return find<QLineEdit>(u"Size Limit"_s); }

    QToolButton &increase() { return find<QToolButton>(u"Increase Size Limit"_s); }

    QToolButton &decrease() { return find<QToolButton>(u"Decrease Size Limit"_s); }

    // Replaces what is in the box, and goes on.
    void typeInto(const QString &text)
    {
        box().setFocus();
        box().selectAll();
        type(text);
    }

    qint64 limit() const { return settings.artworkSizeBudgetKilobytes(); }
};

} // namespace

TEST_F(SizeLimitTest, ShowsTheSetting)
{
    EXPECT_EQ(box().text(), u"600"_s);
    EXPECT_EQ(box().width(), 70);
    EXPECT_TRUE(shows<QLabel>(u"Size Limit"_s));
    EXPECT_TRUE(shows<QLabel>(u"KB"_s));
}

TEST_F(SizeLimitTest, StandsInOneRow)
{
    const auto left = [this](QWidget &widget) { return widget.mapTo(&view(), QPoint()).x(); };
    EXPECT_LT(left(find<QLabel>(u"Size Limit"_s)), left(box()));
    EXPECT_LT(left(box()), left(find<QLabel>(u"KB"_s)));
    EXPECT_LT(left(find<QLabel>(u"KB"_s)), left(increase()));
    EXPECT_EQ(left(increase()), left(decrease()));
}

TEST_F(SizeLimitTest, IsExplained)
{
    const auto &explanation = find<QLabel>(
        u"Embedded artwork over this size is re-encoded as JPEG — dropping resolution only if compression alone isn't enough. Many players and car head units show nothing at all past roughly 600 KB. With shrinking off, oversized artwork is embedded as-is and flagged with a warning."_s);
    EXPECT_LT(explanation.font().pointSizeF(), view().font().pointSizeF());
    EXPECT_EQ(explanation.palette().color(explanation.foregroundRole()),
              toneColour(Tone::secondary, view().palette()));
}

TEST_F(SizeLimitTest, LeavesAHalfTypedNumberAlone)
{
    typeInto(u"7"_s);
    EXPECT_EQ(box().text(), u"7"_s);
    EXPECT_EQ(limit(), 600);
    type(u"00"_s);
    EXPECT_EQ(box().text(), u"700"_s);
    EXPECT_EQ(limit(), 600);
    press(Qt::Key_Return);
    EXPECT_EQ(limit(), 700);
    EXPECT_EQ(box().text(), u"700"_s);
}

TEST_F(SizeLimitTest, TakesUpWhatIsTypedWhenTheBoxIsLeft)
{
    typeInto(u"1234"_s);
    press(Qt::Key_Tab);
    EXPECT_FALSE(box().hasFocus());
    EXPECT_EQ(limit(), 1234);
}

TEST_F(SizeLimitTest, TakesUpWhatIsTypedWhenTheWindowCloses)
{
    typeInto(u"900"_s);
    view().close();
    EXPECT_EQ(limit(), 900);
}

TEST_F(SizeLimitTest, TakesUpWhatIsTypedWhenAnotherWindowComesToTheFront)
{
    typeInto(u"900"_s);
    QWidget other;
    ASSERT_TRUE(showActive(other));
    EXPECT_EQ(limit(), 900);
}

TEST_F(SizeLimitTest, KeepsToTheLimitsOfTheStore)
{
    typeInto(u"6"_s);
    press(Qt::Key_Return);
    EXPECT_EQ(limit(), 50);
    EXPECT_EQ(box().text(), u"50"_s);
    typeInto(u"9000"_s);
    press(Qt::Key_Return);
    EXPECT_EQ(limit(), 5000);
    EXPECT_EQ(box().text(), u"5000"_s);
    typeInto(u"999999999999999999"_s);
    press(Qt::Key_Return);
    EXPECT_EQ(limit(), 5000);
}

TEST_F(SizeLimitTest, TakesNothingButDigits)
{
    typeInto(u"-8a0.0 5"_s);
    EXPECT_EQ(box().text(), u"8005"_s);
}

TEST_F(SizeLimitTest, KeepsTheSettingWhereTheBoxIsEmptied)
{
    box().setFocus();
    box().selectAll();
    press(Qt::Key_Backspace);
    EXPECT_EQ(box().text(), QString());
    press(Qt::Key_Return);
    EXPECT_EQ(limit(), 600);
    EXPECT_EQ(box().text(), u"600"_s);
}

TEST_F(SizeLimitTest, TakesTypingBackOnEscape)
{
    typeInto(u"7"_s);
    press(Qt::Key_Escape);
    EXPECT_TRUE(view().isVisible());
    EXPECT_EQ(box().text(), u"600"_s);
    press(Qt::Key_Escape);
    EXPECT_FALSE(view().isVisible()) << "and closes the window where there is none";
    EXPECT_EQ(limit(), 600);
}

TEST_F(SizeLimitTest, StepsByFifty)
{
    click(increase());
    EXPECT_EQ(limit(), 650);
    EXPECT_EQ(box().text(), u"650"_s);
    click(decrease());
    click(decrease());
    EXPECT_EQ(limit(), 550);
    EXPECT_EQ(box().text(), u"550"_s);
}

TEST_F(SizeLimitTest, StopsAtTheLowerEnd)
{
    settings.setArtworkSizeBudgetKilobytes(120);
    click(decrease());
    EXPECT_EQ(limit(), 70);
    click(decrease());
    EXPECT_EQ(limit(), 50);
    EXPECT_FALSE(decrease().isEnabled());
    EXPECT_TRUE(increase().isEnabled());
    box().setFocus();
    press(Qt::Key_Down);
    EXPECT_EQ(limit(), 50);
}

TEST_F(SizeLimitTest, StopsAtTheUpperEnd)
{
    settings.setArtworkSizeBudgetKilobytes(4930);
    click(increase());
    EXPECT_EQ(limit(), 4980);
    click(increase());
    EXPECT_EQ(limit(), 5000);
    EXPECT_FALSE(increase().isEnabled());
    EXPECT_TRUE(decrease().isEnabled());
    box().setFocus();
    press(Qt::Key_Up);
    EXPECT_EQ(limit(), 5000);
}

TEST_F(SizeLimitTest, StepsByTheArrowKeys)
{
    box().setFocus();
    press(Qt::Key_Up);
    press(Qt::Key_Up);
    EXPECT_EQ(limit(), 700);
    press(Qt::Key_Down);
    EXPECT_EQ(limit(), 650);
    EXPECT_EQ(box().text(), u"650"_s);
}

TEST_F(SizeLimitTest, TakesUpWhatIsTypedBeforeAStep)
{
    typeInto(u"1000"_s);
    click(increase());
    EXPECT_EQ(limit(), 1050);
    EXPECT_TRUE(box().hasFocus());
    typeInto(u"2000"_s);
    press(Qt::Key_Down);
    EXPECT_EQ(limit(), 1950);
}

TEST_F(SizeLimitTest, FollowsAChangeThatIsMadeElsewhere)
{
    settings.setArtworkSizeBudgetKilobytes(300);
    EXPECT_EQ(box().text(), u"300"_s);
}

TEST_F(SizeLimitTest, KeepsWhatIsBeingTypedWhenTheSettingChangesElsewhere)
{
    typeInto(u"7"_s);
    settings.setArtworkSizeBudgetKilobytes(300);
    EXPECT_EQ(box().text(), u"7"_s);
    type(u"77"_s);
    press(Qt::Key_Return);
    EXPECT_EQ(limit(), 777);
}

TEST_F(SizeLimitTest, TakesUpWhatAnAssistiveToolFillsIn)
{
    QAccessibleInterface *interface = QAccessible::queryAccessibleInterface(&box());
    ASSERT_TRUE(interface);
    tabs().setFocus();
    interface->setText(QAccessible::Value, u"800"_s);
    EXPECT_EQ(limit(), 800);
}

TEST_F(SizeLimitTest, StaysOpenToChangeWhileShrinkingIsOff)
{
    find<QCheckBox>(u"Shrink artwork that's over the size limit"_s).click();
    EXPECT_TRUE(box().isEnabled()) << "larger artwork is warned of all the same";
}

namespace {

struct StoredSizeLimitTest : testing::Test
{
    QTemporaryDir folder;
    QString file = folder.filePath(u"settings.json"_s);
    FakePanels panels;
};

} // namespace

TEST_F(StoredSizeLimitTest, BeyondTheLimitsIsShownAndLeftAsItIs)
{
    writeFile(file, R"({"artworkSizeBudgetKilobytes": 10000})");
    SettingsStore store(file);
    AppSettings settings(store);
    SettingsView view(settings, panels);
    view.findChild<QTabWidget *>()->setCurrentIndex(2);
    ASSERT_TRUE(showActive(view));
    auto *box = named<QLineEdit>(view, u"Size Limit"_s);
    ASSERT_TRUE(box);
    EXPECT_EQ(box->text(), u"10000"_s);
    EXPECT_FALSE(named<QToolButton>(view, u"Increase Size Limit"_s)->isEnabled());
    box->setFocus();
    press(Qt::Key_Return);
    EXPECT_EQ(settings.artworkSizeBudgetKilobytes(), 10000);
    press(Qt::Key_Down);
    EXPECT_EQ(settings.artworkSizeBudgetKilobytes(), 5000);
}

} // namespace tonearm
