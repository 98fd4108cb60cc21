// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/ProcessRunner.h"

#include "support/Cancellation.h"
#include "support/Text.h"
#include "tools/ChildProcess.h"
#include "tools/LaunchGate.h"
#include "tools/LineSplitter.h"

#include <QCoroFuture>

#include <QPromise>

#include <unistd.h>

#include <array>
#include <cerrno>
#include <thread>
#include <utility>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

using RunResult = ProcessRunner::RunResult;

// Reads a pipe to its end, handing each chunk on as it comes.
template <typename OnChunk> void readToEnd(const FileDescriptor &readEnd, OnChunk onChunk)
{
    constexpr std::size_t chunkBytes = 65536; // a pipe's buffer on Linux
    std::array<char, chunkBytes> buffer; // NOLINT(cppcoreguidelines-pro-type-member-init): filled by read
    for (;;) {
        const ssize_t count = ::read(readEnd.number(), buffer.data(), buffer.size());
        if (count > 0)
            onChunk(QByteArrayView(buffer.data(), count));
        else if (count == 0 || errno != EINTR)
            return;
    }
}

QByteArray readStdout(const FileDescriptor &readEnd)
{
    QByteArray collected;
    readToEnd(readEnd, [&](QByteArrayView chunk) { collected.append(chunk); });
    return collected;
}

QByteArray readStderr(const FileDescriptor &readEnd, const ProcessRunner::LineCallback &onLine)
{
    QByteArray collected;
    if (!onLine) {
        readToEnd(readEnd, [&](QByteArrayView chunk) { collected.append(chunk); });
        return collected;
    }
    LineSplitter splitter(onLine);
    readToEnd(readEnd, [&](QByteArrayView chunk) {
        collected.append(chunk);
        splitter.add(chunk);
    });
    splitter.finish();
    return collected;
}

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

    RunResult carryOut(LaunchGate &gate) const
    {
        Pipe output = Pipe::open();
        Pipe errors = Pipe::open();
        const ChildProcess &child =
            gate.store(ChildProcess::launch(m_executable, m_arguments, output.writeEnd, errors.writeEnd));
        output.writeEnd.close();
        errors.writeEnd.close();

        RunResult result;
        std::thread outputReader([&] { result.stdoutBytes = readStdout(output.readEnd); });
        result.stderrBytes = readStderr(errors.readEnd, m_onStderrLine);
        outputReader.join();
        const std::int32_t status = child.wait();

        if (gate.isCancelled())
            throw CancellationError{};
        if (status != 0) {
            throw ProcessRunnerError::nonZeroExit(m_command, status,
                                                  decodedUtf8(result.stderrBytes).value_or(QString()));
        }
        return result;
    }

private:
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

QCoro::Task<RunResult> ProcessRunner::run(QUrl executableURL, QStringList arguments, LineCallback onStderrLine,
                                          std::stop_token stop) const
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
