// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "disc/DiscError.h"
#include "disc/ParanoiaOutput.h"
#include "disc/StallWatch.h"
#include "disc/TrackRipping.h"
#include "tools/ProcessRunner.h"

#include <QCoroTask>

#include <QString>
#include <QStringList>
#include <QUrl>

#include <exception>
#include <optional>
#include <stop_token>

namespace tonearm {

/// What one run of cd-paranoia is to do.
struct ParanoiaPlan
{
    DiscTrack track;
    QUrl executableURL;
    QStringList arguments;
    /// The WAV file that comes out.
    QString output;
    StallTimes times = {};

    /// The size of the whole file, its header included.
    qint64 expectedBytes() const;
};

/// One run of cd-paranoia. The program tells nothing useful while it works, and a bad disc can hold it up
/// for ever, so that the growth of its output is the measure of everything: how far it is, whether it has
/// stalled, and whether the result is whole.
class ParanoiaRead
{
public:
    explicit ParanoiaRead(ParanoiaPlan plan, ProcessRunner processRunner = {});

    /// Runs the program to its end, and ends it if it stalls or a stop is requested. `onProgress` is called
    /// on this thread, which needs an event loop: 0.99 at most while the program runs, 1 when it has ended
    /// well. Throws DiscError::trackReadFailed and CancellationError; what the output holds then is no use.
    QCoro::Task<> carryOut(TrackRipping::Progress onProgress, std::stop_token stop);

    /// What the program complained about so far; nothing if all was well.
    std::optional<QString> complaints() const { return m_output.complaints(); }

private:
    QCoro::Task<> runWatched(TrackRipping::Progress onProgress, std::stop_token stop);
    // Ends the run if it stalls.
    QCoro::Task<> monitor(TrackRipping::Progress onProgress, std::stop_source run, std::stop_token stop);

    [[noreturn]] void fail(const std::exception_ptr &failure) const;
    void requireWholeOutput() const;
    DiscError readFailure(const QString &detail) const;

    ParanoiaPlan m_plan;
    ProcessRunner m_processRunner;
    StallWatch m_stallWatch;
    ParanoiaOutput m_output;
};

} // namespace tonearm
