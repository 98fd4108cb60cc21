// SPDX-License-Identifier: GPL-3.0-or-later
// Which audio CDs are there, and how one becomes the source and goes again.
#include "workflow/AppModel.h"

#include "support/Cancellation.h"
#include "support/Text.h"

#include <algorithm>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

// What every audio CD holds.
AudioStreamInfo discAudio()
{
    AudioStreamInfo audio;
    audio.codecName = u"pcm_s16le"_s;
    audio.sampleRateHertz = 44100;
    audio.bitDepth = 16;
    audio.channelCount = 2;
    audio.channelLayout = u"stereo"_s;
    return audio;
}

bool isAt(const std::optional<DiscInfo> &disc, const QUrl &volumeURL)
{
    return disc && disc->volumeURL == volumeURL;
}

} // namespace

bool AppModel::isDiscSource() const
{
    return loadedDisc.value().has_value();
}

bool AppModel::usesSecureRipping() const
{
    const std::optional<DiscInfo> disc = loadedDisc.value();
    return m_settings.useSecureCDRipping() && disc && disc->rawDevice &&
           CDParanoiaInstallation::isAvailable(m_services.tools);
}

void AppModel::requestDisc(const DiscInfo &disc)
{
    requestSource(disc);
}

void AppModel::loadDisc(const DiscInfo &disc)
{
    if (completion.value())
        clearInputs();
    stopPreviewAndDiscard();
    loadedDisc = disc;
    detectedDiscs = QList<DiscInfo>();
    inputFileURL = std::nullopt;
    chapters = disc.chapters();
    sourceAudio = discAudio();
    searchResults = QList<ReleaseInfo>();
    searchNotices = QList<MetadataSearchOutcome::Notice>();
    forgetSourcesResults();
    currentState = WorkflowState::Kind::readingDisc;
    progressMessage = u"Found %1."_s.arg(counted(disc.tracks.size(), u"track"_s));
    isDiscLookup = true;
    isLoadingReleases = true;
    isShowingSearchResults = true;
    m_tasks.start([this, disc](std::stop_token stop) { return lookUpDisc(disc, stop); });
}

void AppModel::refreshDiscs()
{
    m_tasks.start([this](std::stop_token stop) -> QCoro::Task<> {
        const QList<DiscInfo> discs = co_await m_services.discService.scan(stop);
        throwIfCancelled(stop);
        showDiscs(discs);
    });
}

void AppModel::showDiscs(const QList<DiscInfo> &discs)
{
    const std::optional<DiscInfo> loaded = loadedDisc.value();
    const auto isLoaded = [&](const DiscInfo &disc) { return isAt(loaded, disc.volumeURL); };
    if (loaded && std::none_of(discs.begin(), discs.end(), isLoaded))
        loseDisc();
    detectedDiscs = loadedDisc.value() ? QList<DiscInfo>() : discs;
}

void AppModel::loseDisc()
{
    loadedDisc = std::nullopt;
    chapters = QList<ChapterInfo>();
    sourceAudio = std::nullopt;
    stopPreviewAndDiscard();
    const QString message = u"The disc was ejected."_s;
    if (const std::optional<TaskHandle> job = encodingTask.value()) {
        job->cancel();
        progressMessage = message;
    }
    currentState = WorkflowState::error(message);
    alert =
        AlertContent(u"Disc Ejected"_s,
                     u"The audio CD was removed, so there's nothing left to rip. Reinsert it to carry on."_s);
}

bool AppModel::canEject() const
{
    return loadedDisc.value() || !detectedDiscs.value().isEmpty();
}

void AppModel::ejectCurrentDisc()
{
    if (const std::optional<DiscInfo> loaded = loadedDisc.value())
        ejectDisc(*loaded);
    else if (!detectedDiscs.value().isEmpty())
        ejectDisc(detectedDiscs.value().first());
}

void AppModel::ejectDisc(const DiscInfo &disc)
{
    const QUrl volume = disc.volumeURL;
    if (isAt(loadedDisc.value(), volume)) {
        loadedDisc = std::nullopt;
        stopPreviewAndDiscard();
    }
    QList<DiscInfo> others = detectedDiscs.value();
    others.removeIf([&volume](const DiscInfo &other) { return other.volumeURL == volume; });
    detectedDiscs = others;
    m_tasks.start([this, volume](std::stop_token stop) { return giveBack(volume, stop); });
}

// What refuses to come out is found again by the look that follows, and so offered again.
QCoro::Task<> AppModel::giveBack(QUrl volume, std::stop_token stop)
{
    try {
        co_await m_services.discEjector.eject(volume, stop);
    } catch (const CancellationError &) {
        throw;
    } catch (...) {
        // Told by the disc that is still there.
    }
    refreshDiscs();
}

} // namespace tonearm
