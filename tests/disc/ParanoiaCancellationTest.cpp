// SPDX-License-Identifier: GPL-3.0-or-later
#include "disc/ParanoiaFixture.h"
#include "helpers/Await.h"
#include "helpers/Contents.h"
#include "support/Cancellation.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QFile>

namespace tonearm {

using namespace Qt::StringLiterals;
using test::awaitError;

namespace {

class ParanoiaCancellation : public test::ParanoiaFixture
{
protected:
    std::stop_token token() const { return m_stop.get_token(); }

    void cancel() { m_stop.request_stop(); }

    template <typename Result> void expectCancelled(QCoro::Task<Result> task) const
    {
        EXPECT_TRUE(awaitError<CancellationError>(std::move(task)).has_value());
        EXPECT_EQ(files(), QStringList());
    }

private:
    std::stop_source m_stop;
};

constexpr auto hanging = R"(write 10000; echo $$ > "$here/pid"; : > "$here/started"; exec sleep 100)";

} // namespace

TEST_F(ParanoiaCancellation, BeforeTheStartStartsNothing)
{
    setProgram(": > \"$here/started\"");
    cancel();
    expectCancelled(rip({}, token()));
    EXPECT_FALSE(QFile::exists(tools().path(u"started"_s)));
}

TEST_F(ParanoiaCancellation, EndsTheProgramAndLeavesNothing)
{
    setProgram(hanging);
    QCoro::Task<RippedTrack> ripping = rip({}, token());
    ASSERT_TRUE(tools().waitFor(u"started"_s));
    EXPECT_EQ(files().size(), 1);
    cancel();
    expectCancelled(std::move(ripping));
    EXPECT_FALSE(tools().isRunning());
}

TEST_F(ParanoiaCancellation, EndsAVerificationToo)
{
    setProgram(hanging);
    QCoro::Task<bool> verifying = verify({}, {}, token());
    ASSERT_TRUE(tools().waitFor(u"started"_s));
    cancel();
    expectCancelled(std::move(verifying));
    EXPECT_FALSE(tools().isRunning());
}

TEST_F(ParanoiaCancellation, IsNoFailureWhateverTheProgramMakesOfIt)
{
    setProgram(R"(trap 'echo error >&2; exit 5' TERM; write 23564; : > "$here/started"
        while :; do sleep 0.01; done)");
    QCoro::Task<RippedTrack> ripping = rip({}, token());
    ASSERT_TRUE(tools().waitFor(u"started"_s));
    cancel();
    expectCancelled(std::move(ripping));
}

TEST_F(ParanoiaCancellation, BetweenTheProgramsEndAndTheChecksumLeavesNothing)
{
    setProgram("write 23564");
    expectCancelled(rip(
        [this](double fraction) {
            if (fraction == 1.0)
                cancel();
        },
        token()));
}

TEST_F(ParanoiaCancellation, WaitsForAProgramThatWontGo)
{
    setProgram("trap '' TERM; write 100; : > \"$here/started\"; waitFor go");
    bool hasEnded = false;
    const auto follow = [&]() -> QCoro::Task<> {
        try {
            co_await rip({}, token());
        } catch (const CancellationError &) {
            hasEnded = true;
        }
    };
    const QCoro::Task<> following = follow();
    ASSERT_TRUE(tools().waitFor(u"started"_s));
    cancel();
    EXPECT_FALSE(test::eventually([&] { return hasEnded; }, 50));
    test::writeFile(tools().path(u"go"_s), {});
    EXPECT_TRUE(test::eventually([&] { return hasEnded; }));
    EXPECT_EQ(files(), QStringList());
}

TEST_F(ParanoiaCancellation, OfOneReadLeavesAnotherAlone)
{
    setProgram(R"(write 23564; : > "$here/started-$5"; waitFor go)");
    QCoro::Task<RippedTrack> cancelled = rip({}, token());
    track.number = 4;
    QCoro::Task<RippedTrack> other = rip();
    ASSERT_TRUE(tools().waitFor(u"started-3"_s) && tools().waitFor(u"started-4"_s));
    cancel();
    EXPECT_TRUE(awaitError<CancellationError>(std::move(cancelled)).has_value());
    test::writeFile(tools().path(u"go"_s), {});
    EXPECT_TRUE(QFile::exists(test::await(std::move(other)).url.toLocalFile()));
    EXPECT_EQ(files().size(), 1);
}

} // namespace tonearm
