// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "support/DescribedError.h"

#include <QCoroTask>

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QUrl>

#include <cstdint>
#include <functional>
#include <stdexcept>
#include <stop_token>
#include <system_error>

namespace tonearm {

/// A child program that ended with a status other than 0.
class ProcessRunnerError : public DescribedError
{
public:
    ProcessRunnerError(QString commandName, std::int32_t exitStatus, QString stderrText);

    static ProcessRunnerError nonZeroExit(QString command, std::int32_t status, QString stderrText)
    {
        return {std::move(command), status, std::move(stderrText)};
    }

    QString description() const override;

    /// The last path component of the executable.
    QString command;
    /// The exit status, or the signal's number for a child that a signal ended.
    std::int32_t status;
    /// What the child wrote to stderr; empty if that isn't valid UTF-8.
    QString stderrText;

    bool operator==(const ProcessRunnerError &other) const;
};

/// A child program that was started, but whose words or end couldn't be read. What it was to do may be half
/// done.
class LostChildError : public std::runtime_error
{
public:
    explicit LostChildError(const std::system_error &cause)
        : std::runtime_error(cause.what())
    {
    }
};

/// The one way in which the application starts a child program. Stateless: any number of runs can be
/// under way at once.
class ProcessRunner
{
public:
    struct RunResult
    {
        QByteArray stdoutBytes;
        QByteArray stderrBytes;

        bool operator==(const RunResult &) const = default;
    };

    /// Takes one line of stderr, without its end. Called on a background thread, one call at a time, in
    /// stream order, always before the run ends; it has to return quickly and must not throw.
    using LineCallback = std::function<void(const QString &)>;

    /// Starts a program and suspends until it has exited and both its pipes are closed. The child
    /// inherits standard input, environment and working directory, and nothing else.
    ///
    /// Throws CancellationError after a stop request, whatever the child's exit status (the child gets
    /// a SIGTERM and is waited for), std::system_error if the program can't be started, LostChildError
    /// if it can't be followed, and ProcessRunnerError for an exit status other than 0. The caller's thread
    /// needs an event loop.
    QCoro::Task<RunResult> run(QUrl executableURL, QStringList arguments, LineCallback onStderrLine,
                               std::stop_token stop) const;
};

} // namespace tonearm
