// SPDX-License-Identifier: GPL-3.0-or-later
#include "cddafs/EndWatch.h"

#include <gtest/gtest.h>

#include <unistd.h>

#include <atomic>
#include <semaphore>

namespace tonearm {

namespace {

constexpr std::chrono::seconds patience(20);

bool alwaysPresent()
{
    return true;
}

} // namespace

TEST(EndWatch, TellsThatTheDiscIsGone)
{
    std::atomic<bool> isPresent = true;
    std::counting_semaphore<> ended(0);
    const EndWatch watch(
        std::nullopt, [&] { return isPresent.load(); }, [&] { ended.release(); },
        std::chrono::milliseconds(1));
    EXPECT_FALSE(ended.try_acquire());
    isPresent = false;
    EXPECT_TRUE(ended.try_acquire_for(patience));
}

TEST(EndWatch, TellsAtOnceThatTheParentHasLongEnded)
{
    std::counting_semaphore<> ended(0);
    // A process is never its own parent.
    const EndWatch watch(::getpid(), alwaysPresent, [&] { ended.release(); });
    EXPECT_TRUE(ended.try_acquire_for(patience));
}

TEST(EndWatch, RepeatsItselfUntilItIsHeard)
{
    std::counting_semaphore<> ended(0);
    const EndWatch watch(
        std::nullopt, [] { return false; }, [&] { ended.release(); }, std::chrono::milliseconds(1));
    for (int count = 0; count < 3; ++count)
        EXPECT_TRUE(ended.try_acquire_for(patience));
}

TEST(EndWatch, IsSilentWhileAllIsWell)
{
    std::atomic<int> ends = 0;
    std::atomic<int> looks = 0;
    {
        const EndWatch watch(
            ::getppid(), [&] { return ++looks > 0; }, [&] { ++ends; }, std::chrono::milliseconds(1));
        while (looks < 5)
            std::this_thread::yield();
    }
    EXPECT_EQ(ends, 0);
}

} // namespace tonearm
