// SPDX-License-Identifier: GPL-3.0-or-later
#include "disc/TrackSource.h"

#include <utility>

namespace tonearm {

namespace {

using Clock = std::chrono::steady_clock;

// Longer than the way between the threads, and so short that what is read meanwhile fits the processor's
// cache.
constexpr std::chrono::microseconds moment{200};

Reading readingOf(ReadableFile &file, qint64 size)
{
    try {
        return {.bytes = file.read(size)};
    } catch (const std::exception &) {
        return {.failure = std::current_exception()};
    }
}

std::deque<Reading> readingsOf(ReadableFile &file, ReadingOrder order, const std::stop_token &stop)
{
    const Clock::time_point end = Clock::now() + moment;
    std::deque<Reading> readings;
    do {
        readings.push_back(readingOf(file, order.size));
        --order.count;
    } while (order.count > 0 && !readings.back().bytes.isEmpty() && !stop.stop_requested() &&
             Clock::now() < end);
    return readings;
}

} // namespace

TrackSource::TrackSource(std::shared_ptr<const RipFiles> files, QString path, std::chrono::milliseconds grace)
    : m_held(
          std::make_shared<Held>(Held{.files = std::move(files), .path = std::move(path), .file = nullptr}))
    , m_thread(grace)
{
}

QCoro::Task<bool> TrackSource::isReadable(std::stop_token stop)
{
    const auto call = [held = m_held] { return held->files->isReadable(held->path); };
    return m_thread.run(call, std::move(stop));
}

QCoro::Task<std::optional<qint64>> TrackSource::size(std::stop_token stop)
{
    const auto call = [held = m_held] { return held->files->size(held->path); };
    return m_thread.run(call, std::move(stop));
}

QCoro::Task<> TrackSource::open(std::stop_token stop)
{
    const auto call = [held = m_held] { held->file = held->files->open(held->path); };
    return m_thread.run(call, std::move(stop));
}

QCoro::Task<> TrackSource::close(std::stop_token stop)
{
    const auto call = [held = m_held] { held->file.reset(); };
    return m_thread.run(call, std::move(stop));
}

QCoro::Task<> TrackSource::seek(qint64 offset, std::stop_token stop)
{
    const auto call = [held = m_held, offset] { held->file->seek(offset); };
    return m_thread.run(call, std::move(stop));
}

QCoro::Task<std::deque<Reading>> TrackSource::read(ReadingOrder order, std::stop_token stop)
{
    const auto call = [held = m_held, order, stop] { return readingsOf(*held->file, order, stop); };
    return m_thread.run(call, std::move(stop));
}

} // namespace tonearm
