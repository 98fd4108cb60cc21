// SPDX-License-Identifier: GPL-3.0-or-later
#include "encoding/ProgressReporter.h"

#include "encoding/EncodingProgress.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <thread>
#include <vector>

namespace tonearm {

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

// What a reporter for an output of so many seconds tells of these lines.
std::vector<double> reported(double duration, const std::vector<QString> &lines)
{
    std::vector<double> fractions;
    ProgressReporter reporter(duration, [&](double fraction) { fractions.push_back(fraction); });
    for (const QString &line : lines)
        reporter.handle(line);
    return fractions;
}

} // namespace

TEST(ProgressReporter, ReadsTheClock)
{
    EXPECT_THAT(reported(181, {u"out_time=00:01:30.500000"_s}), ElementsAre(0.5));
    EXPECT_THAT(reported(7200, {u"out_time=01:00:00"_s}), ElementsAre(0.5));
    EXPECT_THAT(reported(181, {u"out_time=1:30.5"_s}), ElementsAre(0.5));
    EXPECT_THAT(reported(181, {u"out_time=90.5"_s}), ElementsAre(0.5));
    EXPECT_THAT(reported(181, {u"out_time=::1:30.5:"_s}), ElementsAre(0.5));
}

TEST(ProgressReporter, ReadsMicroseconds)
{
    EXPECT_THAT(reported(181, {u"out_time_us=90500000"_s}), ElementsAre(0.5));
}

TEST(ProgressReporter, IgnoresBlanksRoundKeyAndValue)
{
    EXPECT_THAT(reported(2, {u" \tout_time_us \t=\t 1000000 "_s}), ElementsAre(0.5));
}

TEST(ProgressReporter, IgnoresEveryOtherLine)
{
    const std::vector<QString> lines = {
        u""_s,
        u"="_s,
        u"out_time_us"_s,
        u"out_time_us="_s,
        u"=1000000"_s,
        u"out_time_ms=1000000"_s,
        u"OUT_TIME_US=1000000"_s,
        u"progress=end"_s,
        u"speed= 391x"_s,
        u"Error: a=b"_s,
    };
    EXPECT_THAT(reported(2, lines), IsEmpty());
}

TEST(ProgressReporter, IgnoresValuesThatAreNoTime)
{
    const std::vector<QString> lines = {
        u"out_time_us=N/A"_s, u"out_time=N/A"_s,         u"out_time_us=-1000000"_s, u"out_time=-00:00:01.2"_s,
        u"out_time=1:-1"_s,   u"out_time=0:0:0:1"_s,     u"out_time=:"_s,           u"out_time=1:x"_s,
        u"out_time_us=1s"_s,  u"out_time_us=1=000000"_s, u"out_time_us=1,5"_s,
    };
    EXPECT_THAT(reported(2, lines), IsEmpty());
}

TEST(ProgressReporter, LeavesOutStepsUnderHalfOfOnePercent)
{
    EXPECT_THAT(reported(1000, {u"out_time=4.9"_s, u"out_time=5"_s, u"out_time=9.9"_s, u"out_time=10.1"_s}),
                ElementsAre(0.005, 0.0101));
}

TEST(ProgressReporter, LeavesOutStepsBack)
{
    EXPECT_THAT(reported(10, {u"out_time=5"_s, u"out_time=4"_s, u"out_time=0"_s, u"out_time=6"_s}),
                ElementsAre(0.5, 0.6));
}

TEST(ProgressReporter, TellsTheEndAsOftenAsItComes)
{
    EXPECT_THAT(reported(10, {u"out_time=9.999"_s, u"out_time=10"_s, u"out_time=10"_s, u"out_time=12"_s}),
                ElementsAre(0.9999, 1.0, 1.0, 1.0));
}

TEST(ProgressReporter, TellsNothingOfAnEmptyChapter)
{
    EXPECT_THAT(reported(0, {u"out_time=0"_s, u"out_time=1"_s}), IsEmpty());
    EXPECT_THAT(reported(-1, {u"out_time=1"_s}), IsEmpty());
}

TEST(ProgressReporter, WorksWithoutACallback)
{
    ProgressReporter reporter(10, nullptr);
    EXPECT_NO_THROW(reporter.handle(u"out_time=5"_s));
}

TEST(ProgressReporter, KeepsTheLastPosition)
{
    ProgressReporter reporter(10, nullptr);
    EXPECT_EQ(reporter.position(), 0);
    for (const QString &line : {u"out_time=2"_s, u"out_time_us=2001000"_s, u"out_time=N/A"_s, u"speed=3"_s})
        reporter.handle(line);
    EXPECT_EQ(reporter.position(), 2.001);
}

TEST(ProgressReporter, MayBeCalledAgainByItsCallback)
{
    std::vector<double> fractions;
    ProgressReporter *again = nullptr;
    ProgressReporter reporter(10, [&](double fraction) {
        fractions.push_back(fraction);
        if (fractions.size() < 3)
            again->handle(u"out_time=10"_s);
    });
    again = &reporter;
    reporter.handle(u"out_time=5"_s);
    EXPECT_THAT(fractions, ElementsAre(0.5, 1.0, 1.0));
}

TEST(ProgressReporter, TakesLinesFromSeveralThreads)
{
    std::atomic<int> calls = 0;
    ProgressReporter reporter(100, [&](double) { ++calls; });
    const auto feed = [&] {
        for (int second = 1; second <= 99; ++second)
            reporter.handle(u"out_time=%1"_s.arg(second));
    };
    std::thread first(feed);
    std::thread second(feed);
    first.join();
    second.join();
    EXPECT_EQ(calls, 99);
}

TEST(EncodingProgress, SpreadsTheTracksOverTheJob)
{
    EXPECT_EQ(
        EncodingProgress::within(1, 4, u"B"_s, 0.5),
        (EncodingProgress{.trackNumber = 2, .totalTracks = 4, .title = u"B"_s, .overallFraction = 0.375}));
    EXPECT_EQ(EncodingProgress::within(0, 4, u"A"_s, 0).overallFraction, 0);
    EXPECT_EQ(EncodingProgress::within(3, 4, u"D"_s, 1).overallFraction, 1);
}

} // namespace tonearm
