// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "disc/RipFiles.h"
#include "disc/StallableThread.h"

#include <QCoroTask>

#include <QByteArray>
#include <QString>

#include <chrono>
#include <deque>
#include <exception>
#include <memory>
#include <optional>
#include <stop_token>

namespace tonearm {

/// So many readings of one size, the next beginning where the last ended.
struct ReadingOrder
{
    qint64 size = 0;
    qint64 count = 1;
};

/// What a reading gave: bytes, at the end of a file none, or a failure.
struct Reading
{
    QByteArray bytes = {};
    std::exception_ptr failure = {};
};

/// A track's file on a disc, asked on a thread of its own: a drive that doesn't answer any more is left
/// behind when a stop is requested, with CancellationError. What else fails is std::system_error.
class TrackSource
{
public:
    /// `grace` is how long a cancelled call may still take.
    TrackSource(std::shared_ptr<const RipFiles> files, QString path, std::chrono::milliseconds grace);

    QCoro::Task<bool> isReadable(std::stop_token stop);
    QCoro::Task<std::optional<qint64>> size(std::stop_token stop);

    /// Opens the file anew, at its start.
    QCoro::Task<> open(std::stop_token stop);
    QCoro::Task<> close(std::stop_token stop);

    /// Needs the file open, as read() does.
    QCoro::Task<> seek(qint64 offset, std::stop_token stop);

    /// The first readings of the order, at least one: the way to the thread and back takes longer than a
    /// reading that needn't wait for the drive. They end with one that gives no bytes, at a stop request,
    /// and after a moment, so that what a slow drive reads comes piece by piece.
    QCoro::Task<std::deque<Reading>> read(ReadingOrder order, std::stop_token stop);

private:
    // Touched on the thread only.
    struct Held
    {
        std::shared_ptr<const RipFiles> files;
        QString path;
        std::unique_ptr<ReadableFile> file;
    };

    std::shared_ptr<Held> m_held;
    StallableThread m_thread;
};

} // namespace tonearm
