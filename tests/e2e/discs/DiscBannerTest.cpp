// SPDX-License-Identifier: GPL-3.0-or-later
// The rows of the banner while discs come and go.
#include "e2e/discs/ShownDisc.h"

#include "app/screens/mainwindow/DiscOffer.h"
#include "helpers/Printing.h"

#include <QApplication>
#include <QTest>

#include <algorithm>

namespace tonearm {

using namespace Qt::StringLiterals;
using namespace test;

namespace {

struct DiscBannerTest : DiscWindowTest
{
    // The rows that are to be seen, top to bottom.
    QList<DiscOffer *> rows()
    {
        QList<DiscOffer *> found = window.window().findChildren<DiscOffer *>();
        found.removeIf([](const DiscOffer *row) { return !row->isVisible(); });
        std::sort(found.begin(), found.end(),
                  [](const DiscOffer *one, const DiscOffer *other) { return one->y() < other->y(); });
        return found;
    }

    // Waits until the rows have been laid out, and names their discs.
    QStringList names()
    {
        ShownWindow::settle();
        QStringList result;
        for (const DiscOffer *row : rows())
            result.append(row->disc().volumeName);
        return result;
    }

    QPushButton &button(const QString &name, const QString &disc)
    {
        for (DiscOffer *row : rows())
            if (row->disc().volumeName == disc)
                return *named<QPushButton>(*row, name);
        throw std::runtime_error("there is no such row");
    }

    const DiscInfo a = shownDisc(u"A"_s);
    const DiscInfo b = shownDisc(u"B"_s);
    const DiscInfo c = shownDisc(u"C"_s);
};

} // namespace

TEST_F(DiscBannerTest, KeepsAPressAndTheFocusWhenAnotherDiscComes)
{
    put({b});
    QPushButton &load = button(u"Load Disc"_s, u"B"_s);
    load.setFocus();
    QTest::mousePress(&load, Qt::LeftButton);
    put({a, b, c});
    EXPECT_EQ(names(), (QStringList{u"A"_s, u"B"_s, u"C"_s}));
    EXPECT_EQ(&button(u"Load Disc"_s, u"B"_s), &load);
    EXPECT_TRUE(load.hasFocus());
    EXPECT_TRUE(load.isDown());
    QTest::mouseRelease(&load, Qt::LeftButton);
    EXPECT_TRUE(eventually([this] { return model.loadedDisc.value() == b; }));
}

TEST_F(DiscBannerTest, KeepsAPressAndTheFocusWhenAnotherDiscGoes)
{
    put({a, b, c});
    QPushButton &eject = button(u"Eject"_s, u"B"_s);
    eject.setFocus();
    QTest::mousePress(&eject, Qt::LeftButton);
    put({b});
    EXPECT_EQ(names(), QStringList{u"B"_s});
    EXPECT_TRUE(eject.hasFocus());
    QTest::mouseRelease(&eject, Qt::LeftButton);
    EXPECT_TRUE(eventually([this] { return !surroundings.ejector().ejected.isEmpty(); }));
    EXPECT_EQ(surroundings.ejector().ejected, QList{b.volumeURL});
}

TEST_F(DiscBannerTest, FollowsTheOrderOfTheDiscs)
{
    put({a, b, c});
    put({c, a});
    EXPECT_EQ(names(), (QStringList{u"C"_s, u"A"_s}));
    put({b, a, c});
    EXPECT_EQ(names(), (QStringList{u"B"_s, u"A"_s, u"C"_s}));
}

TEST_F(DiscBannerTest, IsGoneThroughFromTopToBottomBeforeTheRestOfTheWindow)
{
    put({b});
    put({a, b});
    EXPECT_EQ(names(), (QStringList{u"A"_s, u"B"_s}));
    button(u"Load Disc"_s, u"A"_s).setFocus();
    for (QWidget *next : {static_cast<QWidget *>(&button(u"Eject"_s, u"A"_s)),
                          static_cast<QWidget *>(&button(u"Load Disc"_s, u"B"_s)),
                          static_cast<QWidget *>(&button(u"Eject"_s, u"B"_s)),
                          static_cast<QWidget *>(&window.button(u"Select Input File…"_s))}) {
        press(Qt::Key_Tab);
        EXPECT_EQ(QApplication::focusWidget(), next);
    }
}

// A click is carried out from the event loop, and the discs may change before that.
TEST_F(DiscBannerTest, TakesAClickForNoDiscButItsOwn)
{
    put({a, b});
    click(button(u"Load Disc"_s, u"A"_s));
    click(button(u"Eject"_s, u"A"_s));
    DiscInfo another = c;
    another.volumeURL = a.volumeURL;
    model.detectedDiscs = QList{another, b};
    EXPECT_EQ(names(), (QStringList{u"C"_s, u"B"_s}));
    surroundings.settle();
    EXPECT_FALSE(model.loadedDisc.value());
    EXPECT_TRUE(surroundings.ejector().ejected.isEmpty());
}

TEST_F(DiscBannerTest, TakesNoClickForADiscThatHasGone)
{
    put({a});
    click(button(u"Load Disc"_s, u"A"_s));
    model.detectedDiscs = QList<DiscInfo>();
    surroundings.settle();
    EXPECT_FALSE(model.loadedDisc.value());
    EXPECT_FALSE(window.window().findChild<DiscBanner *>()->isShown());
}

TEST_F(DiscBannerTest, LoadsADiscOnceHoweverOftenItIsClicked)
{
    put({a});
    QPushButton &load = button(u"Load Disc"_s, u"A"_s);
    click(load);
    click(load);
    ASSERT_TRUE(eventually([this] { return model.loadedDisc.value() == a; }));
    surroundings.settle();
    EXPECT_FALSE(model.pendingSourceChange.value());
}

TEST_F(DiscBannerTest, GivesItsRowsBackOneByOne)
{
    put({a, b, c});
    for (const QString &disc : {u"B"_s, u"A"_s, u"C"_s}) {
        const qsizetype before = model.detectedDiscs.value().size();
        click(button(u"Eject"_s, disc));
        ASSERT_TRUE(eventually([&] { return model.detectedDiscs.value().size() == before - 1; }));
    }
    EXPECT_EQ(surroundings.ejector().ejected, (QList{b.volumeURL, a.volumeURL, c.volumeURL}));
    EXPECT_FALSE(window.window().findChild<DiscBanner *>()->isShown());
}

} // namespace tonearm
