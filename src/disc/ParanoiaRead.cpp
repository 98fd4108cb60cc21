// SPDX-License-Identifier: GPL-3.0-or-later
#include "disc/ParanoiaRead.h"

#include "support/Cancellation.h"
#include "support/InterruptibleSleep.h"

#include <QFileInfo>

#include <algorithm>
#include <utility>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 wavHeaderBytes = 44;

// 0 for a file that isn't there yet.
qint64 sizeOf(const QString &path)
{
    return QFileInfo(path).size();
}

} // namespace

qint64 ParanoiaPlan::expectedBytes() const
{
    return track.frameCount * discFrameBytes + wavHeaderBytes;
}

ParanoiaRead::ParanoiaRead(ParanoiaPlan plan, ProcessRunner processRunner)
    : m_plan(std::move(plan))
    , m_processRunner(processRunner)
{
}

QCoro::Task<> ParanoiaRead::carryOut(TrackRipping::Progress onProgress, std::stop_token stop)
{
    try {
        co_await runWatched(onProgress, stop);
    } catch (...) {
        fail(std::current_exception());
    }
    if (onProgress)
        onProgress(1.0);
    requireWholeOutput();
}

QCoro::Task<> ParanoiaRead::runWatched(TrackRipping::Progress onProgress, std::stop_token stop)
{
    std::stop_source run;
    const std::stop_callback onStop(stop, [&run] { run.request_stop(); });
    std::stop_source watching;
    const QCoro::Task<> monitoring = monitor(onProgress, run, watching.get_token());

    const ProcessRunner::LineCallback onStderrLine = [this](const QString &line) { m_output.append(line); };
    std::exception_ptr failure;
    try {
        co_await m_processRunner.run(m_plan.executableURL, m_plan.arguments, onStderrLine, run.get_token());
    } catch (...) {
        failure = std::current_exception();
    }
    watching.request_stop();
    co_await monitoring;
    if (failure)
        std::rethrow_exception(failure);
}

QCoro::Task<> ParanoiaRead::monitor(TrackRipping::Progress onProgress, std::stop_source run,
                                    std::stop_token stop)
{
    constexpr double highestFraction = 0.99;
    const auto expected = static_cast<double>(m_plan.expectedBytes());
    OutputGrowth growth(m_plan.times);
    try {
        for (;;) {
            co_await interruptibleSleep(m_plan.times.poll, stop);
            const qint64 size = sizeOf(m_plan.output);
            if (growth.isStalledAt(size)) {
                m_stallWatch.declareStalled(size);
                run.request_stop();
                co_return;
            }
            if (onProgress)
                onProgress(std::min(highestFraction, static_cast<double>(size) / expected));
        }
    } catch (const CancellationError &) { // NOLINT(bugprone-empty-catch): the run has ended
    }
}

void ParanoiaRead::fail(const std::exception_ptr &failure) const
{
    if (const std::optional<qint64> bytes = m_stallWatch.bytes())
        throw readFailure(stallMessage(m_plan.track, *bytes, m_plan.expectedBytes()));
    try {
        std::rethrow_exception(failure);
    } catch (const CancellationError &) {
        throw;
    } catch (...) {
        throw readFailure(complaints().value_or(describe(failure).description));
    }
}

void ParanoiaRead::requireWholeOutput() const
{
    const qint64 size = sizeOf(m_plan.output);
    if (size >= m_plan.expectedBytes())
        return;
    const QString shortfall = u"Only %1 of %2 bytes were read. "_s.arg(
        QString::number(size), QString::number(m_plan.expectedBytes()));
    throw readFailure(shortfall + complaints().value_or(u"The drive stopped early."_s));
}

DiscError ParanoiaRead::readFailure(const QString &detail) const
{
    return DiscError::trackReadFailed(m_plan.track.number, detail);
}

} // namespace tonearm
