// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QCoroTask>

#include <QList>

#include <algorithm>
#include <functional>
#include <memory>
#include <stop_token>
#include <utility>
#include <vector>

namespace tonearm {

/// How the items of a list are read.
template <typename Item, typename Result> struct BoundedReading
{
    /// Reads one item. The task must not throw.
    std::function<QCoro::Task<Result>(Item)> read;
    /// Takes what was read of an item, as it comes in, and how much of the list is done, from 0 to 1.
    std::function<void(Item, Result, double)> record;
};

/// So many items of a list are read side by side.
inline constexpr qsizetype maximumReadsInFlight = 4;

namespace detail {

template <typename Item, typename Result> struct BoundedReadingState
{
    QList<Item> items;
    BoundedReading<Item, Result> reading;
    std::stop_token stop;
    qsizetype next = 0;
    qsizetype finished = 0;
    bool hasEnded = false;
};

// One of several that take from the list what nobody has taken yet.
template <typename Item, typename Result>
QCoro::Task<> readOnward(std::shared_ptr<BoundedReadingState<Item, Result>> state)
{
    while (!state->hasEnded && state->next < state->items.size()) {
        const Item item = state->items.at(state->next++);
        const QCoro::Task<Result> task = state->reading.read(item);
        Result result = co_await task;
        if (state->hasEnded)
            co_return;
        ++state->finished;
        const double fraction = double(state->finished) / double(state->items.size());
        state->reading.record(item, std::move(result), fraction);
        state->hasEnded = state->stop.stop_requested();
    }
}

} // namespace detail

/// Reads the items of a list with at most four reads under way. They start in the list's order; results are
/// recorded in the order in which they come. The first result after a stop request is the last one that is
/// recorded, and no other read starts after it. Ends when all reads have ended, and never throws.
template <typename Item, typename Result>
QCoro::Task<> readBounded(QList<Item> items, BoundedReading<Item, Result> reading, std::stop_token stop)
{
    using State = detail::BoundedReadingState<Item, Result>;
    const auto state = std::make_shared<State>(
        State{.items = std::move(items), .reading = std::move(reading), .stop = std::move(stop)});
    const qsizetype count = std::min(state->items.size(), maximumReadsInFlight);
    std::vector<QCoro::Task<>> readers;
    for (qsizetype index = 0; index < count; ++index)
        readers.push_back(detail::readOnward<Item, Result>(state));
    for (const QCoro::Task<> &reader : readers)
        co_await reader;
}

} // namespace tonearm
