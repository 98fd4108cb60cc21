// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "support/FileDescriptor.h"

#include <QString>
#include <QStringList>

#include <cstdint>

namespace tonearm {

/// A child program, held by a pidfd: signals reach this child or nobody, even after it has been reaped
/// and its number given to another process.
class ChildProcess
{
public:
    /// Starts a program with the two descriptors as its stdout and stderr. It inherits standard input,
    /// environment and working directory, and no other descriptor. Throws std::system_error.
    static ChildProcess launch(const QString &executable, const QStringList &arguments,
                               const FileDescriptor &standardOutput, const FileDescriptor &standardError);

    /// Whether the child hasn't exited yet. Thread-safe.
    bool isRunning() const;

    /// Sends the child a SIGTERM; does nothing to one that has ended. Thread-safe.
    void terminate() const;

    /// Blocks until the child has exited and reaps it; to be called once. Returns the exit status, or
    /// the signal's number if a signal ended the child.
    std::int32_t wait() const;

private:
    explicit ChildProcess(FileDescriptor pidfd);

    FileDescriptor m_pidfd;
};

} // namespace tonearm
