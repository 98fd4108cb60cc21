// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "disc/RipFiles.h"

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>

namespace tonearm::test {

/// Keeps threads waiting until it is opened.
class Gate
{
public:
    /// Waits, for a minute at most.
    void pass();
    void open();

    /// Whether a thread has come to it.
    bool isReached() const;

private:
    mutable std::mutex m_mutex;
    std::condition_variable m_changed;
    bool m_isOpen = false;
    bool m_isReached = false;
};

/// Throws the system's error of that number.
[[noreturn]] void failWith(int number);

/// The real file system, with what a drive does to it, and a log of what it was asked.
///
/// All functions are set before the first call. They run on the thread of the call and may block.
class FaultyFiles : public RipFiles, public std::enable_shared_from_this<FaultyFiles>
{
public:
    struct Reading
    {
        /// How many readings were before this one.
        int index = 0;
        qint64 offset = 0;
        qint64 size = 0;
        /// What the real file gives.
        QByteArray bytes = {};
    };

    /// Gives what the reading gives in the end.
    std::function<QByteArray(const Reading &)> onRead;
    /// Called with the number of openings before this one, and so on.
    std::function<void(int)> onOpen;
    std::function<void(int)> onSeek;
    std::function<void(int)> onWrite;
    std::function<void()> onCreate;
    std::function<void()> onTruncate;
    /// Called before everything that goes to the log.
    std::function<void()> onEverything;
    bool isSizeKnown = true;

    bool isReadable(const QString &path) const override;
    std::optional<qint64> size(const QString &path) const override;
    std::unique_ptr<ReadableFile> open(const QString &path) const override;
    std::unique_ptr<WritableFile> create(const QString &path) const override;

    /// Adds an entry to the log.
    void note(const QString &entry) const;

    /// Its entries: "open", "read 2352", "seek 0", "close", and what else was noted.
    QStringList log() const;

    /// The sizes of all readings.
    QList<qint64> readSizes() const;

private:
    class Source;
    class Destination;

    QByteArray read(ReadableFile &file, qint64 offset, qint64 size) const;
    int next(int &counter) const;

    SystemRipFiles m_system;
    mutable std::mutex m_mutex;
    mutable QStringList m_log;
    mutable QList<qint64> m_readSizes;
    mutable int m_reads = 0;
    mutable int m_opens = 0;
    mutable int m_seeks = 0;
    mutable int m_writes = 0;
};

} // namespace tonearm::test
