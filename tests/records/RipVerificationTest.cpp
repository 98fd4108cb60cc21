// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/records/RipVerification.h"

#include <gtest/gtest.h>

#include <array>

namespace tonearm {

TEST(RipVerification, TellsTheWorseNewsFirstInEitherOrder)
{
    using enum RipVerification;

    struct Case
    {
        RipVerification first;
        RipVerification second;
        RipVerification both;
    };

    constexpr std::array cases = {
        Case{unverified, unverified, unverified},
        Case{unverified, secure, secure},
        Case{unverified, verified, verified},
        Case{unverified, mismatched, mismatched},
        Case{secure, secure, secure},
        Case{secure, verified, verified},
        Case{secure, mismatched, mismatched},
        Case{verified, verified, verified},
        Case{verified, mismatched, mismatched},
        Case{mismatched, mismatched, mismatched},
    };
    for (const Case &each : cases) {
        EXPECT_EQ(combined(each.first, each.second), each.both);
        EXPECT_EQ(combined(each.second, each.first), each.both);
    }
}

} // namespace tonearm
