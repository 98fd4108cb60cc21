// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/BothOf.h"

#include "helpers/Await.h"

#include <gtest/gtest.h>

#include <QCoroFuture>

#include <QPromise>

#include <stdexcept>
#include <string>

namespace tonearm {

namespace {

// A task that ends when the test says so.
struct Waiting
{
    Waiting() { promise.start(); }

    QCoro::Task<> task()
    {
        co_await promise.future();
        hasEnded = true;
        if (failure)
            throw std::runtime_error(failure);
    }

    void end() { promise.finish(); }

    QPromise<void> promise;
    const char *failure = nullptr;
    bool hasEnded = false;
};

QCoro::Task<> noteEnd(QCoro::Task<> task, std::string *end)
{
    try {
        co_await task;
        *end = "well";
    } catch (const std::runtime_error &error) {
        *end = error.what();
    }
}

struct BothOf : testing::Test
{
    void begin() { noting = noteEnd(bothOf(first.task(), second.task()), &end); }

    Waiting first;
    Waiting second;
    std::string end;
    QCoro::Task<> noting;
};

} // namespace

TEST_F(BothOf, EndsWhenBothHaveEnded)
{
    begin();
    second.end();
    ASSERT_TRUE(test::eventually([this] { return second.hasEnded; }));
    EXPECT_EQ(end, "");
    first.end();
    EXPECT_TRUE(test::eventually([this] { return end == "well"; }));
}

TEST_F(BothOf, WaitsForTheSecondIfTheFirstFails)
{
    first.failure = "the first";
    begin();
    first.end();
    ASSERT_TRUE(test::eventually([this] { return first.hasEnded; }));
    EXPECT_EQ(end, "");
    second.end();
    EXPECT_TRUE(test::eventually([this] { return end == "the first"; }));
}

TEST_F(BothOf, TellsTheFirstOfTwoFailures)
{
    first.failure = "the first";
    second.failure = "the second";
    begin();
    second.end();
    first.end();
    EXPECT_TRUE(test::eventually([this] { return end == "the first"; }));
}

TEST_F(BothOf, TellsAFailureOfTheSecond)
{
    second.failure = "the second";
    begin();
    second.end();
    ASSERT_TRUE(test::eventually([this] { return second.hasEnded; }));
    EXPECT_EQ(end, "");
    first.end();
    EXPECT_TRUE(test::eventually([this] { return end == "the second"; }));
}

} // namespace tonearm
