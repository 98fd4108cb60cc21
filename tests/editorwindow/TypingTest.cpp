// SPDX-License-Identifier: GPL-3.0-or-later
// What typing into a box does to the model, and what the model does to the box.
#include "editorwindow/EditorWindowTest.h"

#include <QAccessible>
#include <QApplication>
#include <QInputMethodEvent>

namespace tonearm {

using namespace Qt::StringLiterals;
using namespace test;
using Field = EditableTagField;

namespace {

struct TypingTest : EditorWindowTest
{
    TypingTest() { show({filledRow(u"a.flac"_s), filledRow(u"b.flac"_s)}); }

    QLineEdit &artist() { return window.box(u"Artist"_s); }

    static void compose(QLineEdit &box, const QString &preedit, const QString &commit = {})
    {
        QInputMethodEvent event(preedit, {});
        event.setCommitString(commit);
        QApplication::sendEvent(&box, &event);
    }

    std::optional<QString> editOf(const QString &name, Field field)
    {
        const auto edits = model.changes.value().fieldEdits.value(surroundings.row(name).url);
        return edits.contains(field) ? std::optional(edits.value(field)) : std::nullopt;
    }
};

} // namespace

TEST_F(TypingTest, ReachesEverySelectedFileAsTyped)
{
    window.fillIn(u"Artist"_s, u" New "_s);
    EXPECT_EQ(editOf(u"a.flac"_s, Field::artist), u" New "_s);
    EXPECT_EQ(editOf(u"b.flac"_s, Field::artist), u" New "_s);
    EXPECT_EQ(artist().text(), u" New "_s);
}

TEST_F(TypingTest, GoesOnWhereTheCursorIs)
{
    click(artist());
    press(Qt::Key_Home);
    type(u"To "_s);
    EXPECT_EQ(artist().cursorPosition(), 3);
    EXPECT_EQ(editOf(u"a.flac"_s, Field::artist), u"To The Artist"_s);
}

TEST_F(TypingTest, CanBeUndone)
{
    click(artist());
    press(Qt::Key_End);
    type(u"s"_s);
    ASSERT_EQ(artist().text(), u"The Artists"_s);
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(artist().text(), u"The Artist"_s);
    EXPECT_EQ(editOf(u"a.flac"_s, Field::artist), u"The Artist"_s);
    press(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(artist().text(), u"The Artists"_s);
}

TEST_F(TypingTest, ClearsAFieldByAnEdit)
{
    window.fillIn(u"Artist"_s, u"x"_s);
    press(Qt::Key_Backspace);
    EXPECT_EQ(editOf(u"a.flac"_s, Field::artist), QString());
    EXPECT_EQ(artist().placeholderText(), u"Artist"_s);
}

TEST_F(TypingTest, IsNotDisturbedWhileAnInputMethodComposes)
{
    click(artist());
    press(Qt::Key_A, Qt::ControlModifier);
    compose(artist(), u"おん"_s);
    // What comes meanwhile from elsewhere.
    model.setValue(u"1970"_s, Field::year);
    model.isReadingArtwork = true;
    compose(artist(), u"おんが"_s);
    compose(artist(), {}, u"音楽"_s);
    EXPECT_EQ(artist().text(), u"音楽"_s);
    EXPECT_EQ(editOf(u"b.flac"_s, Field::artist), u"音楽"_s);
}

TEST_F(TypingTest, CanBeDoneByAnAssistiveTool)
{
    auto *text = QAccessible::queryAccessibleInterface(&artist())->editableTextInterface();
    ASSERT_TRUE(text);
    text->replaceText(0, int(artist().text().size()), u"New"_s);
    EXPECT_EQ(editOf(u"a.flac"_s, Field::artist), u"New"_s);
}

TEST_F(TypingTest, IsNotWhatSelectingFilesDoes)
{
    select({u"a.flac"_s});
    model.setValue(u"Other"_s, Field::artist);
    select({u"a.flac"_s, u"b.flac"_s});
    EXPECT_EQ(artist().text(), QString());
    select({u"b.flac"_s});
    select({});
    select({u"a.flac"_s, u"b.flac"_s});
    EXPECT_EQ(editOf(u"b.flac"_s, Field::artist), std::nullopt);
    EXPECT_EQ(editOf(u"b.flac"_s, Field::trackPosition), std::nullopt);
    EXPECT_EQ(model.changes.value().fieldEdits.size(), 1);
}

TEST_F(TypingTest, ChangesNothingWithoutASelection)
{
    select({});
    window.fillIn(u"Artist"_s, u"Nobody"_s);
    EXPECT_TRUE(model.changes.value() == TagChangeSet());
    EXPECT_EQ(artist().text(), u"Nobody"_s);
    select({u"a.flac"_s});
    EXPECT_EQ(artist().text(), u"The Artist"_s);
    EXPECT_TRUE(model.changes.value() == TagChangeSet());
}

TEST_F(TypingTest, LeavesNothingBehindForFilesThatDiffer)
{
    select({});
    window.fillIn(u"Year"_s, u"1"_s);
    show({filledRow(u"a.flac"_s, u"1969"_s), filledRow(u"b.flac"_s, u"1970"_s)});
    EXPECT_EQ(window.box(u"Year"_s).text(), QString());
    EXPECT_TRUE(model.changes.value() == TagChangeSet());
}

TEST_F(TypingTest, CutsNoTag)
{
    AudioFileTags tags;
    tags.title = QString(40'000, u'x') + u"\nend"_s;
    show({rowOf(u"a.flac"_s, tags)});
    EXPECT_EQ(window.box(u"Song Title"_s).text(), tags.title);
    click(window.box(u"Song Title"_s));
    press(Qt::Key_End);
    type(u"!"_s);
    EXPECT_EQ(editOf(u"a.flac"_s, Field::title), QString(tags.title + u'!'));
}

TEST_F(TypingTest, TakesTheResultOfTheLastSaveAway)
{
    model.completionMessage = u"Saved 1 file."_s;
    window.fillIn(u"Artist"_s, u"New"_s);
    EXPECT_EQ(model.completionMessage.value(), std::nullopt);
}

TEST_F(TypingTest, ReachesEachField)
{
    for (const Field field : allEditableTagFields) {
        window.fillIn(label(field), u"7"_s);
        EXPECT_EQ(editOf(u"a.flac"_s, field), u"7"_s);
    }
}

} // namespace tonearm
