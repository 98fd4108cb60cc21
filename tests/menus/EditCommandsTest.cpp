// SPDX-License-Identifier: GPL-3.0-or-later
#include "menus/ShownMenus.h"

#include "helpers/Await.h"
#include "helpers/Printing.h"
#include "helpers/Widgets.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

namespace tonearm {

using namespace Qt::StringLiterals;
using namespace test;

namespace {

struct EditCommandsTest : ShownMenus
{
    EditCommandsTest()
    {
        box->setFocus();
        QGuiApplication::clipboard()->setText(u"copied"_s);
    }

    ~EditCommandsTest() override { QGuiApplication::clipboard()->clear(); }

    // The edits that are possible.
    QStringList possible()
    {
        QStringList texts;
        for (const QString &text : edits)
            if (entry(text).isEnabled())
                texts.append(text);
        return texts;
    }

    QStringList edits = {u"Undo"_s, u"Redo"_s, u"Cut"_s, u"Copy"_s, u"Paste"_s, u"Select All"_s};
};

} // namespace

TEST_F(EditCommandsTest, AreTheseInThisOrder)
{
    EXPECT_EQ(entriesOf(menu(u"Edit"_s)),
              (QStringList{u"Undo"_s, u"Redo"_s, u"-"_s, u"Cut"_s, u"Copy"_s, u"Paste"_s, u"Select All"_s,
                           u"-"_s, u"Preferences…"_s}));
}

TEST_F(EditCommandsTest, HaveTheKeysOfTheDesktop)
{
    using Key = QKeySequence;
    const QList<Key::StandardKey> keys = {Key::Undo, Key::Redo,  Key::Cut,
                                          Key::Copy, Key::Paste, Key::SelectAll};
    for (qsizetype index = 0; index < edits.size(); ++index)
        EXPECT_EQ(entry(edits[index]).shortcuts(), Key::keyBindings(keys[index]));
    EXPECT_EQ(keysOf(entry(u"Undo"_s)), u"Ctrl+Z"_s);
    EXPECT_EQ(keysOf(entry(u"Preferences…"_s)), u"Ctrl+,"_s);
}

TEST_F(EditCommandsTest, FollowTheTextAndItsSelection)
{
    EXPECT_EQ(possible(), QStringList{u"Paste"_s});
    type(u"abc"_s);
    EXPECT_EQ(possible(), (QStringList{u"Undo"_s, u"Paste"_s, u"Select All"_s}));
    box->setSelection(1, 1);
    EXPECT_EQ(possible(), (QStringList{u"Undo"_s, u"Cut"_s, u"Copy"_s, u"Paste"_s, u"Select All"_s}));
    press(Qt::Key_Backspace);
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_TRUE(possible().contains(u"Redo"_s));
}

TEST_F(EditCommandsTest, DoAsTheySay)
{
    type(u"abc"_s);
    entry(u"Undo"_s).trigger();
    EXPECT_EQ(box->text(), QString());
    entry(u"Redo"_s).trigger();
    EXPECT_EQ(box->text(), u"abc"_s);
    entry(u"Select All"_s).trigger();
    EXPECT_EQ(box->selectedText(), u"abc"_s);
    entry(u"Copy"_s).trigger();
    EXPECT_EQ(QGuiApplication::clipboard()->text(), u"abc"_s);
    entry(u"Cut"_s).trigger();
    EXPECT_EQ(box->text(), QString());
    entry(u"Paste"_s).trigger();
    entry(u"Paste"_s).trigger();
    EXPECT_EQ(box->text(), u"abcabc"_s);
}

TEST_F(EditCommandsTest, LeaveTheTextOfAnotherBoxAlone)
{
    other->setText(u"other"_s);
    type(u"abc"_s);
    entry(u"Select All"_s).trigger();
    EXPECT_FALSE(other->hasSelectedText());
    other->setFocus();
    EXPECT_EQ(possible(), (QStringList{u"Paste"_s, u"Select All"_s}));
    entry(u"Select All"_s).trigger();
    EXPECT_EQ(other->selectedText(), u"other"_s);
}

TEST_F(EditCommandsTest, ChangeNothingThatIsReadOnly)
{
    box->setReadOnly(true);
    box->setText(u"abc"_s);
    box->selectAll();
    EXPECT_EQ(possible(), (QStringList{u"Copy"_s, u"Select All"_s}));
    press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), u"abc"_s);
}

TEST_F(EditCommandsTest, AreImpossibleOutsideOfTexts)
{
    type(u"abc"_s);
    auto *button = new QPushButton(u"Button"_s, &window);
    button->show();
    button->setFocus();
    EXPECT_EQ(possible(), QStringList());
    button->clearFocus();
    box->setFocus();
    EXPECT_NE(possible(), QStringList());
}

TEST_F(EditCommandsTest, AreImpossibleOnceTheBoxIsGone)
{
    type(u"abc"_s);
    delete box;
    EXPECT_FALSE(entry(u"Undo"_s).isEnabled());
}

TEST_F(EditCommandsTest, CantPasteFromAnEmptyClipboard)
{
    QGuiApplication::clipboard()->clear();
    openMenu(u"Edit"_s);
    EXPECT_FALSE(entry(u"Paste"_s).isEnabled());
    menu(u"Edit"_s).close();
    QGuiApplication::clipboard()->setText(u"copied"_s);
    openMenu(u"Edit"_s);
    EXPECT_TRUE(entry(u"Paste"_s).isEnabled());
    menu(u"Edit"_s).close();
}

TEST_F(EditCommandsTest, PasteByTheKeyWhateverTheMenuLastShowed)
{
    QGuiApplication::clipboard()->clear();
    openMenu(u"Edit"_s);
    menu(u"Edit"_s).close();
    QGuiApplication::clipboard()->setText(u"copied"_s);
    press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(box->text(), u"copied"_s);
}

TEST_F(EditCommandsTest, AreForTheTextBehindAMenuOpenedByTheMouse)
{
    type(u"abc"_s);
    box->selectAll();
    openMenu(u"Edit"_s);
    ASSERT_TRUE(entry(u"Cut"_s).isEnabled());
    QTest::keyClick(&menu(u"Edit"_s), Qt::Key_T);
    EXPECT_EQ(box->text(), QString());
    EXPECT_EQ(QGuiApplication::clipboard()->text(), u"abc"_s);
}

TEST_F(EditCommandsTest, AreForTheTextBehindAMenuOpenedByItsKey)
{
    type(u"abc"_s);
    box->setSelection(1, 2);
    press(Qt::Key_E, Qt::AltModifier);
    ASSERT_TRUE(menu(u"Edit"_s).isVisible());
    EXPECT_EQ(box->selectedText(), u"bc"_s);
    ASSERT_TRUE(entry(u"Cut"_s).isEnabled());
    QTest::keyClick(&menu(u"Edit"_s), Qt::Key_T);
    EXPECT_EQ(box->text(), u"a"_s);
    EXPECT_TRUE(eventually([this] { return box->hasFocus(); }));
}

TEST_F(EditCommandsTest, OpenTheSettings)
{
    const QSignalSpy requested(bar, &MenuBar::settingsRequested);
    press(Qt::Key_Comma, Qt::ControlModifier);
    EXPECT_EQ(requested.size(), 1);
}

} // namespace tonearm
