// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/ProcessRunner.h"

#include "support/Cancellation.h"
#include "support/Text.h"
#include "tools/ChildProcess.h"
#include "tools/LaunchGate.h"
#include "tools/LineSplitter.h"
#include "tools/PipeReader.h"

#include <QCoroFuture>

#include <QPromise>

#include <functional>
#include <initializer_list>
#include <thread>
#include <utility>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

using RunResult = ProcessRunner::RunResult;

// One run from launch to end, on a thread of its own.
class Run
{
public:
    Run(const QUrl &executableURL, QStringList arguments, ProcessRunner::LineCallback onStderrLine)
        : m_executable(executableURL.toLocalFile())
        , m_command(executableURL.fileName())
        , m_arguments(std::move(arguments))
        , m_onStderrLine(std::move(onStderrLine))
    {
    }

    // A cancelled run ends with the cancellation, whatever else may have gone wrong.
    RunResult carryOut(LaunchGate &gate) const
    {
        RunResult result;
        try {
            result = resultOfChild(gate);
        } catch (...) {
            throwIfCancelled(gate);
            throw;
        }
        throwIfCancelled(gate);
        return result;
    }

private:
    RunResult resultOfChild(LaunchGate &gate) const
    {
        Pipe output = Pipe::open();
        Pipe errors = Pipe::open();
        RunResult result;
        LineSplitter lines(m_onStderrLine);
        PipeReader reader;
        PipeReader secondReader;
        reader.add(std::move(errors.readEnd), [&](QByteArrayView chunk) {
            result.stderrBytes.append(chunk);
            lines.add(chunk);
        });
        // One thread reads both pipes, unless a callback could hold it up: stdout must not wait for that.
        (m_onStderrLine ? secondReader : reader).add(std::move(output.readEnd), [&](QByteArrayView chunk) {
            result.stdoutBytes.append(chunk);
        });
        // The second one is there before the launch, so that no child goes unread for want of a thread.
        std::jthread outputReading;
        if (m_onStderrLine)
            outputReading = std::jthread([&] { secondReader.readToEnd(); });

        const ChildProcess &child = launch(gate, std::move(output.writeEnd), std::move(errors.writeEnd));
        reader.readToEnd();
        lines.finish();
        if (outputReading.joinable())
            outputReading.join();
        throwUnlessSuccessful(endOf(child, {reader, secondReader}), result.stderrBytes);
        return result;
    }

    // The exit status, if all was read that came before it.
    static std::int32_t endOf(const ChildProcess &child,
                              std::initializer_list<std::reference_wrapper<const PipeReader>> readers)
    {
        try {
            const std::int32_t status = child.wait();
            for (const PipeReader &reader : readers)
                reader.throwIfFailed();
            return status;
        } catch (const std::system_error &failure) {
            throw LostChildError(failure);
        }
    }

    // Takes over the write ends, so that the readers end with the child, or at once if there is none.
    const ChildProcess &launch(LaunchGate &gate, FileDescriptor standardOutput,
                               FileDescriptor standardError) const
    {
        return gate.store(ChildProcess::launch(m_executable, m_arguments, standardOutput, standardError));
    }

    static void throwIfCancelled(const LaunchGate &gate)
    {
        if (gate.isCancelled())
            throw CancellationError{};
    }

    void throwUnlessSuccessful(std::int32_t status, const QByteArray &stderrBytes) const
    {
        if (status != 0) {
            throw ProcessRunnerError::nonZeroExit(m_command, status,
                                                  decodedUtf8(stderrBytes).value_or(QString()));
        }
    }

    QString m_executable;
    QString m_command;
    QStringList m_arguments;
    ProcessRunner::LineCallback m_onStderrLine;
};

} // namespace

ProcessRunnerError::ProcessRunnerError(QString commandName, std::int32_t exitStatus, QString text)
    : command(std::move(commandName))
    , status(exitStatus)
    , stderrText(std::move(text))
{
}

QString ProcessRunnerError::description() const
{
    const QString sentence = u"%1 exited with status %2."_s.arg(command, QString::number(status));
    const QString told = trimmed(stderrText);
    return told.isEmpty() ? sentence : QString(sentence + u"\n\n" + told);
}

bool ProcessRunnerError::operator==(const ProcessRunnerError &other) const
{
    return command == other.command && status == other.status && stderrText == other.stderrText;
}

QCoro::Task<RunResult> ProcessRunner::run(QUrl executableURL, QStringList arguments,
                                          LineCallback onStderrLine, std::stop_token stop) const
{
    throwIfCancelled(stop);
    const Run run(executableURL, std::move(arguments), std::move(onStderrLine));
    LaunchGate gate;
    const std::stop_callback onStop(stop, [&gate] { gate.cancel(); });

    QPromise<RunResult> promise;
    promise.start();
    QFuture<RunResult> ended = promise.future();
    // Everything that can block happens over there, the launch too. The thread is joined where this
    // frame ends, when it has nothing left to do.
    const std::jthread worker([&] {
        try {
            promise.addResult(run.carryOut(gate));
        } catch (...) {
            promise.setException(std::current_exception());
        }
        promise.finish();
    });
    co_return co_await ended;
}

} // namespace tonearm
