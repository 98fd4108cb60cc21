// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <utility>
#include <vector>

namespace tonearm::bench {

using Milliseconds = std::chrono::duration<double, std::milli>;

inline Milliseconds median(std::vector<Milliseconds> times)
{
    const auto middle = times.begin() + static_cast<std::ptrdiff_t>(times.size() / 2);
    std::nth_element(times.begin(), middle, times.end());
    return *middle;
}

template <typename Work> Milliseconds timeOf(Work work)
{
    const auto begin = std::chrono::steady_clock::now();
    work();
    return std::chrono::steady_clock::now() - begin;
}

/// The medians of two ways to do the same.
struct Comparison
{
    Milliseconds bare{};
    Milliseconds own{};

    double ratio() const { return own / bare; }
};

/// Does both so many times, in turns, so that what else the machine does falls on both alike. The one that
/// goes first changes, so that neither always finds what the other has left.
template <typename Bare, typename Own> Comparison inTurns(int turns, Bare bare, Own own)
{
    std::vector<Milliseconds> bareTimes;
    std::vector<Milliseconds> ownTimes;
    for (int turn = 0; turn < turns; ++turn) {
        const bool isOwnFirst = turn % 2 == 1;
        if (isOwnFirst)
            ownTimes.push_back(timeOf(own));
        bareTimes.push_back(timeOf(bare));
        if (!isOwnFirst)
            ownTimes.push_back(timeOf(own));
    }
    return {.bare = median(std::move(bareTimes)), .own = median(std::move(ownTimes))};
}

} // namespace tonearm::bench
