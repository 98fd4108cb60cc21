// SPDX-License-Identifier: GPL-3.0-or-later
#include "disc/ParanoiaRippingService.h"

#include "disc/DiscError.h"
#include "disc/FileChecksum.h"
#include "disc/ParanoiaArguments.h"
#include "disc/RipFileName.h"
#include "support/Background.h"
#include "tools/CDParanoiaInstallation.h"

#include <QFile>

#include <utility>

namespace tonearm {

using namespace Qt::StringLiterals;

ParanoiaRippingService::ParanoiaRippingService(ToolLocation tools, QString base, StallTimes times,
                                               ProcessRunner processRunner)
    : m_tools(std::move(tools))
    , m_times(times)
    , m_processRunner(processRunner)
    , m_folders(std::move(base))
    , m_executor(u"secure ripping"_s)
{
}

QCoro::Task<RippedTrack> ParanoiaRippingService::rip(DiscTrack track, DiscInfo disc, Progress onProgress,
                                                     std::stop_token stop)
{
    // What is awaited gets named closures only: GCC 12 destroys temporary ones twice.
    const auto ripping = [this, track, disc, onProgress, stop] {
        return ripHere(track, disc, onProgress, stop);
    };
    co_return co_await m_executor.run(ripping);
}

QCoro::Task<bool> ParanoiaRippingService::verify(DiscTrack track, DiscInfo disc, QString checksum,
                                                 Progress onProgress, std::stop_token stop)
{
    const auto verifying = [this, track, disc, checksum, onProgress, stop] {
        return verifyHere(track, disc, checksum, onProgress, stop);
    };
    co_return co_await m_executor.run(verifying);
}

QString ParanoiaRippingService::readerName() const
{
    return u"cd-paranoia"_s;
}

QCoro::Task<RippedTrack> ParanoiaRippingService::ripHere(DiscTrack track, DiscInfo disc, Progress onProgress,
                                                         std::stop_token stop)
{
    const QString output = newOutput(u"paranoia"_s, track);
    const QString checksum = co_await read(track, disc, output, onProgress, stop);
    // The read has just set it, and nothing has come between.
    const RipVerification assurance =
        m_lastReadComplained ? RipVerification::unverified : RipVerification::secure;
    co_return {QUrl::fromLocalFile(output), checksum, assurance};
}

QCoro::Task<bool> ParanoiaRippingService::verifyHere(DiscTrack track, DiscInfo disc, QString checksum,
                                                     Progress onProgress, std::stop_token stop)
{
    const QString output = newOutput(u"paranoia-verify"_s, track);
    const QString second = co_await read(track, disc, output, onProgress, stop);
    QFile::remove(output);
    co_return second == checksum;
}

QCoro::Task<QString> ParanoiaRippingService::read(DiscTrack track, DiscInfo disc, QString output,
                                                  Progress onProgress, std::stop_token stop)
{
    ParanoiaRead reading(plan(track, disc, output), m_processRunner);
    const auto summing = [output, stop] { return fileChecksum(output, stop); };
    try {
        co_await reading.carryOut(onProgress, stop);
        const QString checksum = co_await inBackground(summing);
        m_lastReadComplained = reading.complaints();
        co_return checksum;
    } catch (...) {
        QFile::remove(output);
        throw;
    }
}

QString ParanoiaRippingService::newOutput(const QString &use, const DiscTrack &track)
{
    return m_folders.folder(TemporaryFolders::Purpose::secureRips) + u'/' +
           ripFileName(use, track.number, u"wav"_s);
}

ParanoiaPlan ParanoiaRippingService::plan(const DiscTrack &track, const DiscInfo &disc,
                                          const QString &output) const
{
    if (!disc.rawDevice)
        throw DiscError::driveUnavailable();
    return {.track = track,
            .executableURL = CDParanoiaInstallation::locate(m_tools),
            .arguments = paranoiaArguments(track, disc.rawDevice->toLocalFile(), output),
            .output = output,
            .times = m_times};
}

} // namespace tonearm
