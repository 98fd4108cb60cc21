// SPDX-License-Identifier: GPL-3.0-or-later
// What the bar tells of a save, and its buttons.
#include "editorwindow/EditorWindowTest.h"

#include "app/screens/elements/ElidedLabel.h"
#include "app/screens/elements/IconLabel.h"
#include "app/screens/elements/ProminentButton.h"
#include "helpers/Rendering.h"

#include <QProgressBar>

namespace tonearm {

using namespace Qt::StringLiterals;
using namespace test;
using Field = EditableTagField;

namespace {

struct SaveBarTest : EditorWindowTest
{
    QPushButton &save() { return window.button(u"Save"_s); }

    void showTwo() { show({filledRow(u"a.flac"_s), filledRow(u"b.flac"_s)}); }
};

} // namespace

TEST_F(SaveBarTest, SaysNothingAtFirst)
{
    showTwo();
    EXPECT_FALSE(window.shows(u"Saving progress"_s));
    EXPECT_FALSE(window.shows(u"Stop Saving"_s));
    EXPECT_FALSE(save().isEnabled());
    EXPECT_TRUE(qobject_cast<ProminentButton *>(&save()));
    EXPECT_TRUE(window.button(u"Cancel"_s).isEnabled());
}

TEST_F(SaveBarTest, CountsTheFilesThatWillBeWritten)
{
    showTwo();
    select({u"a.flac"_s});
    model.setValue(u"New"_s, Field::artist);
    EXPECT_TRUE(window.shows<QLabel>(u"1 file will be written."_s));
    EXPECT_TRUE(save().isEnabled());
    select({u"a.flac"_s, u"b.flac"_s});
    model.setValue(u"New"_s, Field::artist);
    EXPECT_TRUE(window.shows<QLabel>(u"2 files will be written."_s));
    model.setValue(u"The Artist "_s, Field::artist);
    EXPECT_FALSE(window.shows(u"2 files will be written."_s));
    EXPECT_FALSE(save().isEnabled());
}

TEST_F(SaveBarTest, ShowsASave)
{
    showTwo();
    model.setValue(u"New"_s, Field::artist);
    model.completionMessage = u"Saved 1 file."_s;
    model.isSaving = true;
    model.saveProgress = 0.5;
    model.saveStatus = u"Saving 2 of 2: b.flac"_s;
    const auto &bar = window.find<QProgressBar>(u"Saving progress"_s);
    EXPECT_EQ(bar.width(), 160);
    EXPECT_EQ(bar.value() * 2, bar.maximum());
    EXPECT_TRUE(window.shows<ElidedLabel>(u"Saving 2 of 2: b.flac"_s));
    EXPECT_TRUE(window.button(u"Stop Saving"_s).isEnabled());
    EXPECT_FALSE(window.shows(u"Saved 1 file."_s));
    EXPECT_FALSE(window.shows(u"2 files will be written."_s));
    EXPECT_FALSE(save().isEnabled());
    EXPECT_TRUE(window.button(u"Cancel"_s).isEnabled());
}

TEST_F(SaveBarTest, IsNotWidenedByALongName)
{
    model.isSaving = true;
    model.saveStatus = u"Saving 1 of 2: "_s + QString(400, u'x');
    WindowUser::settle();
    EXPECT_EQ(widget().width(), 1000);
    EXPECT_EQ(window.clipped(), QStringList());
    EXPECT_TRUE(window.button(u"Stop Saving"_s).visibleRegion().boundingRect() ==
                window.button(u"Stop Saving"_s).rect());
}

TEST_F(SaveBarTest, TellsTheResultBeforeWhatIsLeft)
{
    showTwo();
    model.setValue(u"New"_s, Field::artist);
    model.completionMessage = u"Saved 1 file."_s;
    EXPECT_TRUE(window.shows<IconLabel>(u"Saved 1 file."_s));
    EXPECT_FALSE(window.shows(u"2 files will be written."_s));
    model.completionMessage = std::nullopt;
    EXPECT_FALSE(window.shows(u"Saved 1 file."_s));
    EXPECT_TRUE(window.shows(u"2 files will be written."_s));
}

TEST_F(SaveBarTest, MarksAResultWithFailures)
{
    model.completionMessage = u"Saved 1 file."_s;
    const auto &result = window.find<IconLabel>(u"Saved 1 file."_s);
    EXPECT_EQ(result.iconName(), IconName::success);
    EXPECT_EQ(result.iconTone(), Tone::secondary);
    const QImage success = rendered(window.find(u"Saved 1 file."_s));
    model.saveFailures = QList<SaveFailure>{SaveFailure()};
    EXPECT_EQ(result.iconName(), IconName::warning);
    EXPECT_EQ(result.iconTone(), Tone::warning);
    EXPECT_NE(rendered(window.find(u"Saved 1 file."_s)), success) << "it shows what it says";
    model.saveFailures = QList<SaveFailure>();
    EXPECT_EQ(rendered(window.find(u"Saved 1 file."_s)), success);
}

TEST_F(SaveBarTest, SavesNothingWhileAFolderIsRead)
{
    showTwo();
    model.setValue(u"New"_s, Field::artist);
    model.isLoading = true;
    EXPECT_FALSE(save().isEnabled());
    EXPECT_TRUE(window.button(u"Cancel"_s).isEnabled());
    press(Qt::Key_S, Qt::ControlModifier);
    EXPECT_FALSE(model.isSaving.value());
    model.isLoading = false;
    EXPECT_TRUE(save().isEnabled());
}

TEST_F(SaveBarTest, SavesNothingWithoutTools)
{
    showTwo();
    model.setValue(u"New"_s, Field::artist);
    model.ffmpegProblem = u"Missing."_s;
    EXPECT_FALSE(save().isEnabled());
    press(Qt::Key_S, Qt::ControlModifier);
    EXPECT_FALSE(model.isSaving.value());
    model.ffmpegProblem = std::nullopt;
    EXPECT_TRUE(save().isEnabled());
}

TEST_F(SaveBarTest, StopsASave)
{
    openSongs({u"a.flac"_s, u"b.flac"_s});
    window.fillIn(u"Artist"_s, u"New"_s);
    tools.tell(u"hold"_s, u"b.flac"_s);
    model.dropsUnwritableTags = true;
    click(save());
    ASSERT_TRUE(tools.waitUntilStarted(u"b.flac"_s));
    EXPECT_TRUE(window.shows<ElidedLabel>(u"Saving 2 of 2: b.flac"_s));
    click(window.button(u"Stop Saving"_s));
    surroundings.waitForSave();
    EXPECT_TRUE(window.shows<IconLabel>(u"Saved 1 file · 1 held back · saving was cancelled."_s));
    EXPECT_FALSE(window.shows(u"Stop Saving"_s));
    EXPECT_TRUE(window.dialogs().isEmpty());
}

TEST_F(SaveBarTest, TakesTheKeyboardToTheSaveAndBack)
{
    openSongs({u"a.flac"_s});
    window.fillIn(u"Artist"_s, u"New"_s);
    tools.tell(u"hold"_s, u"a.flac"_s);
    press(Qt::Key_S, Qt::ControlModifier);
    ASSERT_TRUE(tools.waitUntilStarted(u"a.flac"_s));
    EXPECT_EQ(WindowUser::focusedName(), u"Stop Saving"_s);
    press(Qt::Key_Space);
    surroundings.waitForSave();
    EXPECT_EQ(WindowUser::focusedName(), u"Artist"_s);
    type(u"er"_s);
    EXPECT_EQ(window.box(u"Artist"_s).text(), u"Newer"_s);
}

TEST_F(SaveBarTest, LeavesTheKeyboardWhereItWasPutDuringASave)
{
    model.isSaving = true;
    window.button(u"Cancel"_s).setFocus();
    model.isSaving = false;
    EXPECT_EQ(WindowUser::focusedName(), u"Cancel"_s);
}

TEST_F(SaveBarTest, GoesOnToCancelAfterTheLastSave)
{
    openSongs({u"a.flac"_s});
    model.setValue(u"New"_s, Field::artist);
    save().setFocus();
    press(Qt::Key_Space);
    EXPECT_EQ(WindowUser::focusedName(), u"Stop Saving"_s);
    surroundings.waitForSave();
    EXPECT_EQ(WindowUser::focusedName(), u"Cancel"_s);
}

} // namespace tonearm
