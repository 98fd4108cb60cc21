// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/StartedRun.h"

#include "helpers/Await.h"
#include "support/Cancellation.h"

namespace tonearm::test {

StartedRun::StartedRun(const QUrl &program, const QStringList &arguments,
                       const ProcessRunner::LineCallback &onStderrLine)
    : m_following(follow(program, arguments, onStderrLine))
{
}

StartedRun::~StartedRun()
{
    waitForEnd();
}

QCoro::Task<> StartedRun::follow(QUrl program, QStringList arguments,
                                 ProcessRunner::LineCallback onStderrLine)
{
    try {
        m_result = co_await ProcessRunner().run(program, arguments, onStderrLine, m_stop.get_token());
    } catch (...) {
        m_error = std::current_exception();
    }
}

void StartedRun::waitForEnd()
{
    // A run that never ends would go on using this object, so there is no going on without it.
    constexpr int patienceMilliseconds = 60000;
    if (!eventually([&] { return hasEnded(); }, patienceMilliseconds))
        qFatal("A run didn't end within a minute.");
}

ProcessRunner::RunResult StartedRun::outcome()
{
    waitForEnd();
    if (m_error)
        std::rethrow_exception(m_error);
    return *m_result;
}

bool StartedRun::endsCancelled()
{
    return errorOf<CancellationError>([&] { return outcome(); }).has_value();
}

ProcessRunner::RunResult run(const QUrl &program, const QStringList &arguments,
                             const ProcessRunner::LineCallback &onStderrLine)
{
    return StartedRun(program, arguments, onStderrLine).outcome();
}

} // namespace tonearm::test
