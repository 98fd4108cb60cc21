// SPDX-License-Identifier: GPL-3.0-or-later
#include "disc/TrackSource.h"

#include <utility>

namespace tonearm {

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

QCoro::Task<QByteArray> TrackSource::read(qint64 size, std::stop_token stop)
{
    const auto call = [held = m_held, size] { return held->file->read(size); };
    return m_thread.run(call, std::move(stop));
}

} // namespace tonearm
