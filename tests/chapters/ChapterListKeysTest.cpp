// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/chapters/ChapterListKeys.h"

#include <gtest/gtest.h>

#include <QInputMethodEvent>
#include <QKeyEvent>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

std::optional<RowMove> moveBy(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
{
    return rowMove(QKeyEvent(QEvent::KeyPress, key, modifiers));
}

bool continuesBy(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
{
    return continuesTyping(QKeyEvent(QEvent::KeyPress, key, modifiers));
}

} // namespace

TEST(RowMove, IsReadFromKeys)
{
    EXPECT_EQ(moveBy(Qt::Key_Up), RowMove::previous);
    EXPECT_EQ(moveBy(Qt::Key_Down), RowMove::next);
    EXPECT_EQ(moveBy(Qt::Key_Return), RowMove::next);
    EXPECT_EQ(moveBy(Qt::Key_Enter, Qt::KeypadModifier), RowMove::next);
    EXPECT_EQ(moveBy(Qt::Key_PageUp), RowMove::pageUp);
    EXPECT_EQ(moveBy(Qt::Key_PageDown), RowMove::pageDown);
    EXPECT_EQ(moveBy(Qt::Key_Home, Qt::ControlModifier), RowMove::first);
    EXPECT_EQ(moveBy(Qt::Key_End, Qt::ControlModifier), RowMove::last);
}

TEST(RowMove, LeavesOtherKeysToOthers)
{
    EXPECT_EQ(moveBy(Qt::Key_Home), std::nullopt);
    EXPECT_EQ(moveBy(Qt::Key_End), std::nullopt);
    EXPECT_EQ(moveBy(Qt::Key_Return, Qt::ControlModifier), std::nullopt);
    EXPECT_EQ(moveBy(Qt::Key_Escape), std::nullopt);
}

TEST(RowMove, StopsAtTheEnds)
{
    EXPECT_EQ(rowAfter(RowMove::previous, 0, 20, 5), 0);
    EXPECT_EQ(rowAfter(RowMove::previous, 7, 20, 5), 6);
    EXPECT_EQ(rowAfter(RowMove::next, 19, 20, 5), 19);
    EXPECT_EQ(rowAfter(RowMove::next, 7, 20, 5), 8);
    EXPECT_EQ(rowAfter(RowMove::pageUp, 3, 20, 5), 0);
    EXPECT_EQ(rowAfter(RowMove::pageDown, 3, 20, 5), 8);
    EXPECT_EQ(rowAfter(RowMove::pageDown, 17, 20, 5), 19);
    EXPECT_EQ(rowAfter(RowMove::first, 17, 20, 5), 0);
    EXPECT_EQ(rowAfter(RowMove::last, 3, 20, 5), 19);
}

TEST(ContinuesTyping, IsAboutKeysThatWriteOrMoveTheCursor)
{
    EXPECT_TRUE(continuesBy(Qt::Key_A));
    EXPECT_TRUE(continuesBy(Qt::Key_A, Qt::ShiftModifier));
    EXPECT_TRUE(continuesBy(Qt::Key_Backspace));
    EXPECT_TRUE(continuesBy(Qt::Key_Left));
    EXPECT_TRUE(continuesTyping(QInputMethodEvent(u"k"_s, {})));
}

TEST(ContinuesTyping, IsNotAboutChords)
{
    EXPECT_FALSE(continuesBy(Qt::Key_Return, Qt::ControlModifier));
    EXPECT_FALSE(continuesBy(Qt::Key_Shift, Qt::ShiftModifier));
    EXPECT_FALSE(continuesBy(Qt::Key_F, Qt::AltModifier));
    EXPECT_FALSE(continuesTyping(QKeyEvent(QEvent::KeyRelease, Qt::Key_A, Qt::NoModifier)));
}

} // namespace tonearm
