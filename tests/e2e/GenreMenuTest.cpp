// SPDX-License-Identifier: GPL-3.0-or-later
// The menu of default genres beside the genre's box.
#include "e2e/ShownWindow.h"

#include "helpers/Await.h"
#include "helpers/Printing.h"

#include <QApplication>
#include <QMenu>
#include <QTest>
#include <QToolButton>

namespace tonearm {

using namespace Qt::StringLiterals;
using namespace test;

namespace {

struct GenreMenuTest : WindowTest
{
    QToolButton &button() { return window.find<QToolButton>(u"Choose from the default genres"_s); }

    // Null if none is open.
    static QMenu *openMenu() { return qobject_cast<QMenu *>(QApplication::activePopupWidget()); }

    QMenu &opened()
    {
        click(button());
        if (!openMenu())
            throw std::runtime_error("no menu opened");
        return *openMenu();
    }

    static QStringList textsIn(const QMenu &menu)
    {
        QStringList texts;
        for (const QAction *action : menu.actions())
            texts.append(action->isSeparator() ? u"-"_s : action->text());
        return texts;
    }

    static void pick(QMenu &menu, const QString &text)
    {
        for (QAction *action : menu.actions()) {
            if (action->text() != text)
                continue;
            QTest::mouseClick(&menu, Qt::LeftButton, {}, menu.actionGeometry(action).center());
            return;
        }
        throw std::runtime_error("the menu has no \"" + text.toStdString() + '"');
    }
};

} // namespace

TEST_F(GenreMenuTest, OffersTheDefaultGenres)
{
    const QStringList texts = textsIn(opened());
    EXPECT_EQ(texts.first(), u"Acoustic"_s);
    EXPECT_EQ(texts.last(), u"World"_s);
    EXPECT_FALSE(texts.contains(u"Clear"_s));
    EXPECT_FALSE(texts.contains(u"-"_s));
    openMenu()->close();
}

TEST_F(GenreMenuTest, OffersToClearOnlyWhatIsThere)
{
    window.fillIn(u"Genre"_s, u"Skiffle"_s);
    EXPECT_EQ(textsIn(opened()).first(3), (QStringList{u"Clear"_s, u"-"_s, u"Acoustic"_s}));
    pick(*openMenu(), u"Clear"_s);
    EXPECT_EQ(model.genre.value(), QString());
    EXPECT_EQ(window.box(u"Genre"_s).text(), QString());
    EXPECT_EQ(textsIn(opened()).first(), u"Acoustic"_s);
    openMenu()->close();
}

TEST_F(GenreMenuTest, SetsTheGenre)
{
    pick(opened(), u"Ambient"_s);
    EXPECT_EQ(model.genre.value(), u"Ambient"_s);
    EXPECT_EQ(window.box(u"Genre"_s).text(), u"Ambient"_s);
    EXPECT_FALSE(openMenu());
}

TEST_F(GenreMenuTest, KeepsAnAmpersandInAName)
{
    QMenu &menu = opened();
    const auto actions = menu.actions();
    const auto found = std::find_if(actions.begin(), actions.end(),
                                    [](const QAction *action) { return action->text() == u"R&&B"_s; });
    ASSERT_NE(found, actions.end());
    (*found)->trigger();
    EXPECT_EQ(model.genre.value(), u"R&B"_s);
    menu.close();
}

TEST_F(GenreMenuTest, CanBeUsedByKeyboard)
{
    button().setFocus();
    press(Qt::Key_Space);
    QMenu *menu = openMenu();
    ASSERT_TRUE(menu);
    QTest::keyClick(menu, Qt::Key_Down);
    QTest::keyClick(menu, Qt::Key_Down);
    QTest::keyClick(menu, Qt::Key_Return);
    EXPECT_EQ(model.genre.value(), u"Alternative"_s);
    EXPECT_FALSE(openMenu());
    EXPECT_TRUE(button().hasFocus());
}

TEST_F(GenreMenuTest, ChangesNothingWhenItIsLeft)
{
    model.genre = u"Skiffle"_s;
    QTest::keyClick(&opened(), Qt::Key_Escape);
    EXPECT_FALSE(openMenu());
    EXPECT_EQ(model.genre.value(), u"Skiffle"_s);
}

} // namespace tonearm
