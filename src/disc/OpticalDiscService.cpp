// SPDX-License-Identifier: GPL-3.0-or-later
#include "disc/OpticalDiscService.h"

#include "disc/VolumeReading.h"
#include "support/Cancellation.h"
#include "support/PathText.h"

#include <exception>
#include <utility>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

bool isAudioDisc(const MountedVolume &volume)
{
    const bool isHidden = lastPathComponent(volume.url).startsWith(u'.');
    return !isHidden && volume.type == u"cddafs"_s;
}

QList<MountedVolume> volumesOf(const VolumeListing &listing)
{
    try {
        return listing.volumes();
    } catch (const std::exception &) {
        return {};
    }
}

QList<DiscInfo> readDiscs(const QList<MountedVolume> &volumes, const std::stop_token &stop)
{
    QList<DiscInfo> discs;
    for (const MountedVolume &volume : volumes) {
        throwIfCancelled(stop);
        if (!isAudioDisc(volume))
            continue;
        try {
            discs.append(readDisc(volume));
        } catch (const std::exception &) { // NOLINT(bugprone-empty-catch): such a disc counts as none
        }
    }
    return discs;
}

} // namespace

OpticalDiscService::OpticalDiscService(std::shared_ptr<const VolumeListing> volumes)
    : m_volumes(std::move(volumes))
    , m_executor(u"discs"_s)
{
}

QCoro::Task<QList<DiscInfo>> OpticalDiscService::scan(std::stop_token stop)
{
    const auto operation = [volumes = m_volumes, stop]() -> QCoro::Task<QList<DiscInfo>> {
        throwIfCancelled(stop);
        co_return readDiscs(volumesOf(*volumes), stop);
    };
    co_return co_await m_executor.run(operation);
}

} // namespace tonearm
