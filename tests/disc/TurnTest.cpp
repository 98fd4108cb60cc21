// SPDX-License-Identifier: GPL-3.0-or-later
#include "disc/Turn.h"

#include "helpers/Await.h"
#include "support/Cancellation.h"

#include <gtest/gtest.h>

namespace tonearm {

using test::await;
using test::awaitError;

TEST(Turn, ComesAtOnceWhenNobodyHasIt)
{
    Turns turns;
    Turn turn(turns);
    EXPECT_TRUE(turn.take({}).isReady());
}

TEST(Turn, ComesInTheOrderOfAsking)
{
    Turns turns;
    Turn first(turns);
    Turn second(turns);
    Turn third(turns);
    await(first.take({}));
    auto secondComes = second.take({});
    auto thirdComes = third.take({});
    EXPECT_FALSE(secondComes.isReady());
    first.pass();
    await(std::move(secondComes));
    EXPECT_FALSE(thirdComes.isReady());
    second.pass();
    await(std::move(thirdComes));
}

TEST(Turn, IsPassedOnAtItsEnd)
{
    Turns turns;
    Turn second(turns);
    QCoro::Task<> comes;
    {
        Turn first(turns);
        await(first.take({}));
        comes = second.take({});
    }
    await(std::move(comes));
}

TEST(Turn, IsNotPassedOnByWhoDoesNotHaveIt)
{
    Turns turns;
    Turn first(turns);
    Turn second(turns);
    await(first.take({}));
    second.pass();
    auto secondComes = second.take({});
    EXPECT_FALSE(secondComes.isReady());
    first.pass();
    await(std::move(secondComes));
}

TEST(Turn, IsNoLongerWaitedForAfterAStop)
{
    Turns turns;
    Turn first(turns);
    Turn second(turns);
    Turn third(turns);
    std::stop_source stop;
    await(first.take({}));
    auto secondComes = second.take(stop.get_token());
    auto thirdComes = third.take({});
    stop.request_stop();
    EXPECT_TRUE(awaitError<CancellationError>(std::move(secondComes)));
    EXPECT_FALSE(thirdComes.isReady());
    first.pass();
    await(std::move(thirdComes));
}

TEST(Turn, CanBeTakenAgain)
{
    Turns turns;
    Turn turn(turns);
    await(turn.take({}));
    turn.pass();
    EXPECT_TRUE(turn.take({}).isReady());
}

} // namespace tonearm
