// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tools/ProcessRunner.h"

#include <QCoroTask>

#include <exception>
#include <optional>
#include <stop_token>

namespace tonearm::test {

/// A run under way that a test can look at and cancel. Waits for the end when it goes.
class StartedRun
{
public:
    explicit StartedRun(const QUrl &program, const QStringList &arguments = {},
                        const ProcessRunner::LineCallback &onStderrLine = {});
    ~StartedRun();
    StartedRun(const StartedRun &) = delete;
    StartedRun &operator=(const StartedRun &) = delete;

    /// Thread-safe.
    void cancel() { m_stop.request_stop(); }

    bool hasEnded() const { return m_result || m_error; }

    /// Waits for the end; returns the result or throws the failure.
    ProcessRunner::RunResult outcome();

    /// Waits for the end; whether it was a cancellation.
    bool endsCancelled();

private:
    QCoro::Task<> follow(QUrl program, QStringList arguments, ProcessRunner::LineCallback onStderrLine);
    void waitForEnd();

    std::stop_source m_stop;
    std::optional<ProcessRunner::RunResult> m_result;
    std::exception_ptr m_error;
    QCoro::Task<> m_following;
};

/// Runs a program to its end; returns the result or throws the failure.
ProcessRunner::RunResult run(const QUrl &program, const QStringList &arguments = {},
                             const ProcessRunner::LineCallback &onStderrLine = {});

} // namespace tonearm::test
