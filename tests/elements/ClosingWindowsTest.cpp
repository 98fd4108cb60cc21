// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/elements/ClosingWindows.h"

#include <gtest/gtest.h>

#include <QCloseEvent>
#include <QDialog>
#include <QPointer>
#include <QWidget>

namespace tonearm {

namespace {

class AskedWindow : public QWidget
{
public:
    AskedWindow() { show(); }

    bool isWilling = true;
    int askedCount = 0;

protected:
    void closeEvent(QCloseEvent *event) override
    {
        ++askedCount;
        event->setAccepted(isWilling);
    }
};

} // namespace

TEST(ClosingWindows, ClosesThemAll)
{
    AskedWindow last;
    AskedWindow other;
    auto *deleted = new AskedWindow;
    deleted->setAttribute(Qt::WA_DeleteOnClose);
    closeAllWindows(last);
    EXPECT_FALSE(last.isVisible());
    EXPECT_FALSE(other.isVisible());
    EXPECT_FALSE(deleted->isVisible());
}

TEST(ClosingWindows, KeepsTheLastWithOneThatWontClose)
{
    AskedWindow last;
    AskedWindow unwilling;
    AskedWindow other;
    unwilling.isWilling = false;
    closeAllWindows(last);
    EXPECT_TRUE(last.isVisible());
    EXPECT_EQ(last.askedCount, 0);
    EXPECT_EQ(unwilling.askedCount, 1);
    EXPECT_FALSE(other.isVisible());
    unwilling.isWilling = true;
    closeAllWindows(last);
    EXPECT_FALSE(last.isVisible());
    EXPECT_FALSE(unwilling.isVisible());
}

TEST(ClosingWindows, LeavesTheLastItsSay)
{
    AskedWindow last;
    last.isWilling = false;
    AskedWindow other;
    closeAllWindows(last);
    EXPECT_TRUE(last.isVisible());
    EXPECT_FALSE(other.isVisible());
}

TEST(ClosingWindows, LeavesADialogToItsWindow)
{
    AskedWindow last;
    AskedWindow unwilling;
    unwilling.isWilling = false;
    QDialog question(&unwilling);
    question.open();
    closeAllWindows(last);
    EXPECT_TRUE(question.isVisible());
}

TEST(ClosingWindows, AsksNoneThatIsClosedAlready)
{
    AskedWindow last;
    AskedWindow other;
    other.hide();
    closeAllWindows(last);
    EXPECT_EQ(other.askedCount, 0);
}

} // namespace tonearm
