// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <gtest/gtest.h>

#include <cstddef>

namespace tonearm::test {

/// What this process holds of the system at one moment.
struct Census
{
    std::size_t descriptors = 0;
    std::size_t threads = 0;
    /// Children that run and children that nobody has collected.
    std::size_t children = 0;

    static Census take();
};

/// Whether the process holds no more than it did then, of anything. (It may hold less: a QThread that has
/// been waited for is listed for a moment longer.)
testing::AssertionResult holdsNoMoreThan(const Census &before);

/// The state of a process as the system tells it, for example 'S', 'Z' for an uncollected one; '\0' for
/// none of that number.
char stateOf(int processId);

} // namespace tonearm::test
