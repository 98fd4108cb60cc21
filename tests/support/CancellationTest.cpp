// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/Cancellation.h"

#include <gtest/gtest.h>

#include <exception>
#include <type_traits>

namespace tonearm {

TEST(Cancellation, IsThrownOnlyOnceAStopIsRequested)
{
    std::stop_source source;
    EXPECT_NO_THROW(throwIfCancelled(source.get_token()));
    source.request_stop();
    EXPECT_THROW(throwIfCancelled(source.get_token()), CancellationError);
}

TEST(Cancellation, NeverComesFromATokenWithoutSource)
{
    EXPECT_NO_THROW(throwIfCancelled({}));
}

TEST(Cancellation, IsNotCaughtAsAFailure)
{
    EXPECT_FALSE((std::is_base_of_v<std::exception, CancellationError>));
}

} // namespace tonearm
