// SPDX-License-Identifier: GPL-3.0-or-later
// What is to become of files that can't keep all their tags.
#include "editorwindow/EditorWindowTest.h"

#include "app/screens/elements/Colours.h"
#include "app/screens/elements/IconLabel.h"
#include "app/screens/elements/Tooltip.h"

#include <QAccessible>
#include <QCheckBox>

namespace tonearm {

using namespace Qt::StringLiterals;
using namespace test;

namespace {

struct OptionsRowTest : EditorWindowTest
{
    QCheckBox &toggle() { return window.find<QCheckBox>(u"Save even if some tags can't be kept"_s); }
};

} // namespace

TEST_F(OptionsRowTest, ExplainsTheChoice)
{
    const QString text =
        u"Some files — .m4a especially — carry identifiers this app can read but can't write back, such as "
        u"MusicBrainz IDs or ReplayGain values. Nothing that plays a file uses them.\n\nOff: a file like that "
        u"is held back and you're asked what to do.\nOn: it's saved and those tags go, and the result says "
        u"which went.\n\nThis resets when the window is closed."_s;
    EXPECT_EQ(toggle().toolTip(), plainTooltip(text));
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&toggle())->text(QAccessible::Description), text);
    EXPECT_EQ(toggle().icon().pixmap(32).toImage(), icon(IconName::warning).pixmap(32).toImage());
}

TEST_F(OptionsRowTest, FollowsAndSetsTheChoice)
{
    EXPECT_FALSE(toggle().isChecked());
    click(toggle());
    EXPECT_TRUE(model.dropsUnwritableTags.value());
    model.dropsUnwritableTags = false;
    EXPECT_FALSE(toggle().isChecked());
    toggle().setFocus();
    press(Qt::Key_Space);
    EXPECT_TRUE(model.dropsUnwritableTags.value());
}

TEST_F(OptionsRowTest, LeavesTheChoiceAsItIsDuringASave)
{
    model.isSaving = true;
    EXPECT_FALSE(toggle().isEnabled());
    model.isSaving = false;
    EXPECT_TRUE(toggle().isEnabled());
}

TEST_F(OptionsRowTest, TellsWhatASaveHasDropped)
{
    RefusedSave report;
    report.tags = {u"one"_s, u"two"_s};
    model.droppedTagReports = QList<RefusedSave>{report};
    auto &summary = window.find<IconLabel>(u"2 tags dropped from 1 file that couldn't keep them."_s);
    WindowUser::settle();
    EXPECT_GE(summary.x(), toggle().geometry().right() + 1 + 12);
    EXPECT_EQ(summary.iconName(), IconName::warning);
    EXPECT_EQ(summary.palette().color(QPalette::WindowText), toneColour(Tone::warning, widget().palette()));
    model.droppedTagReports = QList<RefusedSave>();
    EXPECT_FALSE(window.shows(u"2 tags dropped from 1 file that couldn't keep them."_s));
}

} // namespace tonearm
