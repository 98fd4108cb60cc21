// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "disc/RipFiles.h"
#include "disc/StallableThread.h"

#include <QCoroTask>

#include <QByteArray>
#include <QString>

#include <chrono>
#include <memory>
#include <optional>
#include <stop_token>

namespace tonearm {

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

    /// Both need the file open.
    QCoro::Task<> seek(qint64 offset, std::stop_token stop);
    QCoro::Task<QByteArray> read(qint64 size, std::stop_token stop);

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
