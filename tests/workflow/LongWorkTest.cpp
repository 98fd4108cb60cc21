// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/LongWork.h"

#include "helpers/FakeDesktop.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tonearm {

using namespace Qt::StringLiterals;
using testing::ElementsAre;

namespace {

class LongWorkTest : public testing::Test
{
protected:
    test::FakeDesktop m_desktop;
    test::FakeWorkWindow m_window;
    LongWork m_work{m_desktop};
    const int m_job = 0;
    const int m_save = 0;
};

} // namespace

TEST_F(LongWorkTest, TellsTheDesktopNothingByItself)
{
    EXPECT_TRUE(m_desktop.progress().isEmpty());
    EXPECT_TRUE(m_desktop.reasons().isEmpty());
}

TEST_F(LongWorkTest, ShowsProgressAndClearsIt)
{
    m_work.advance(&m_job, u"Encoding"_s, 0);
    m_work.advance(&m_job, u"Encoding"_s, 0.5);
    m_work.end(&m_job);
    EXPECT_THAT(m_desktop.progress(), ElementsAre(0.0, 0.5, std::nullopt));
}

TEST_F(LongWorkTest, KeepsTheMachineAwakeOnceForEachWork)
{
    m_work.advance(&m_job, u"Encoding"_s, 0);
    m_work.advance(&m_job, u"Encoding"_s, 0.5);
    EXPECT_EQ(m_desktop.reasons(), QList{u"Encoding"_s});
    EXPECT_TRUE(m_desktop.isAwake());
    m_work.end(&m_job);
    EXPECT_FALSE(m_desktop.isAwake());
    m_work.advance(&m_save, u"Saving"_s, 0);
    EXPECT_EQ(m_desktop.reasons(), (QList{u"Encoding"_s, u"Saving"_s}));
}

TEST_F(LongWorkTest, KeepsTheMachineAwakeOnceForTwoWorksAtATime)
{
    m_work.advance(&m_job, u"Encoding"_s, 0);
    m_work.advance(&m_save, u"Saving"_s, 0);
    m_work.end(&m_job);
    EXPECT_TRUE(m_desktop.isAwake());
    m_work.end(&m_save);
    EXPECT_FALSE(m_desktop.isAwake());
    EXPECT_EQ(m_desktop.reasons(), QList{u"Encoding"_s});
}

TEST_F(LongWorkTest, ShowsTheProgressOfTheWorkThatBeganFirst)
{
    m_work.advance(&m_save, u"Saving"_s, 0.25);
    m_work.advance(&m_job, u"Encoding"_s, 0.1);
    m_work.advance(&m_save, u"Saving"_s, 0.5);
    m_work.end(&m_save);
    m_work.advance(&m_job, u"Encoding"_s, 0.2);
    m_work.end(&m_job);
    EXPECT_THAT(m_desktop.progress(), ElementsAre(0.25, 0.5, 0.1, 0.2, std::nullopt));
}

TEST_F(LongWorkTest, HasNothingToEndForAWorkerWithoutWork)
{
    m_work.end(&m_job);
    EXPECT_TRUE(m_desktop.progress().isEmpty());
}

TEST_F(LongWorkTest, LetsGoOfWhatIsLeftAtItsEnd)
{
    {
        LongWork work(m_desktop);
        work.advance(&m_job, u"Encoding"_s, 0.5);
        work.advance(&m_save, u"Saving"_s, 0.5);
    }
    EXPECT_FALSE(m_desktop.isAwake());
    EXPECT_EQ(m_desktop.progress().last(), std::nullopt);
}

TEST_F(LongWorkTest, NotifiesForAWindowInTheBackground)
{
    const WorkResult result{u"Encoded 1 track."_s, u"More"_s};
    m_work.tell(result, m_window.window());
    EXPECT_EQ(m_desktop.results(), QList{result});
    m_desktop.click();
    EXPECT_TRUE(m_window.isInFront);
}

TEST_F(LongWorkTest, DoesNotNotifyForAWindowInFront)
{
    m_window.isInFront = true;
    m_work.tell({u"Encoded 1 track."_s, {}}, m_window.window());
    EXPECT_TRUE(m_desktop.results().isEmpty());
}

} // namespace tonearm
