// SPDX-License-Identifier: GPL-3.0-or-later
// The picture that a job embeds: where it comes from, what is told of it, and its end.
#include "workflow/AppModel.h"

#include "artwork/CoverArtError.h"
#include "artwork/CoverArtPreparation.h"
#include "artwork/ImageFileName.h"
#include "artwork/PictureDecoding.h"
#include "support/Background.h"
#include "support/Cancellation.h"
#include "support/PathText.h"

#include <QPromise>
#include <QScopeGuard>

#include <memory>
#include <utility>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

struct UsableArt
{
    PreparedCoverArt prepared;
    std::optional<QImage> picture;
};

// What a download is saved as, prepared. If it can't be, the saved file goes again.
UsableArt saveAndPrepare(const std::shared_ptr<ArtworkFolder> &folder, const DownloadedCoverArt &download,
                         std::optional<qint64> budget)
{
    const QString suffix = displayName(download.source) + u"-cover."_s + download.fileExtension;
    const QUrl saved = folder->save(download.data, suffix);
    try {
        const PreparedCoverArt prepared = CoverArtPreparation(folder).prepare(saved, budget);
        return {prepared, screenPicture(prepared.url)};
    } catch (...) {
        folder->discard(saved);
        throw;
    }
}

} // namespace

std::optional<qint64> AppModel::artworkBudget() const
{
    if (!m_settings.shrinkOversizedArtwork())
        return std::nullopt;
    return m_settings.artworkByteBudget();
}

void AppModel::setCoverArt(const PreparedCoverArt &prepared, const std::optional<QImage> &image,
                           const QString &origin)
{
    const std::optional<PreparedCoverArt> old = coverArt.value();
    // The picture goes first and comes last, so that nobody sees it with another's facts.
    coverArtPreview = std::nullopt;
    coverArt = prepared;
    coverArtOrigin = origin;
    coverArtPreview = image;
    if (old && old->url != prepared.url)
        discard({old->url, old->originalURL});
}

// A job that runs may still have to embed what it was started with. A look at the user's own folder may take
// its time, too.
void AppModel::discard(const QList<QUrl> &pictures)
{
    m_discarded += pictures;
    if (encodingTask.value() || m_discarded.isEmpty())
        return;
    const auto removal = [folder = m_services.artworkFolder, discarded = std::exchange(m_discarded, {})] {
        for (const QUrl &picture : discarded)
            folder->discard(picture);
    };
    m_tasks.start([removal](std::stop_token /*stop*/) { return inBackground(removal); });
}

void AppModel::clearCoverArt()
{
    ++m_coverArtChoice;
    endCoverArtPreparation();
    if (const std::optional<PreparedCoverArt> old = coverArt.value())
        discard({old->url, old->originalURL});
    coverArtPreview = std::nullopt;
    coverArt = std::nullopt;
    coverArtOrigin = std::nullopt;
}

void AppModel::chooseCoverArt()
{
    m_tasks.start([this](std::stop_token stop) -> QCoro::Task<> {
        OpenPanelRequest request;
        request.title = u"Select Cover Art"_s;
        request.prompt = u"Choose"_s;
        request.extensions = imageExtensions();
        const std::optional<QUrl> chosen = co_await m_services.panels.choose(request, stop);
        if (chosen)
            useCoverArtFile(*chosen);
    });
}

bool AppModel::useCoverArtFile(const QUrl &url)
{
    if (!hasImageExtension(url)) {
        alert = AlertContent(
            u"Unsupported Image"_s,
            u"\"%1\" isn't a JPEG or PNG. FLAC cover art has to be one of those two formats."_s.arg(
                lastPathComponent(url)));
        return false;
    }
    endCoverArtPreparation();
    m_coverArtPreparation = std::make_shared<QPromise<void>>();
    m_coverArtPreparation->start();
    isPreparingCoverArt = true;
    const int choice = ++m_coverArtChoice;
    m_tasks.start([this, url, choice](std::stop_token stop) -> QCoro::Task<> {
        const auto over = qScopeGuard([this, choice] {
            if (choice == m_coverArtChoice)
                endCoverArtPreparation();
        });
        co_await prepareUserFile(url, choice, stop);
    });
    return true;
}

// A job that waits needn't wait for a picture that is no longer wanted: to read it may take for ever.
void AppModel::endCoverArtPreparation()
{
    isPreparingCoverArt = false;
    if (const auto preparation = std::exchange(m_coverArtPreparation, nullptr))
        preparation->finish();
}

// Of two files the later counts, however long either takes, and what is cleared meanwhile stays so.
QCoro::Task<> AppModel::prepareUserFile(QUrl url, int choice, std::stop_token stop)
{
    const auto decoding = [url] { return screenPicture(url); };
    const std::optional<QImage> picture = co_await inBackground(decoding);
    throwIfCancelled(stop);
    if (!picture)
        alert = AlertContent(u"Couldn't Read Image"_s,
                             u"\"%1\" couldn't be opened as an image."_s.arg(lastPathComponent(url)));
    if (!picture || choice != m_coverArtChoice)
        co_return;
    try {
        const auto making = [url, budget = artworkBudget(), folder = m_services.artworkFolder] {
            return CoverArtPreparation(folder).prepare(url, budget);
        };
        const PreparedCoverArt prepared = co_await inBackground(making);
        if (choice == m_coverArtChoice)
            setCoverArt(prepared, picture, u"Dropped file"_s);
        else
            discard({prepared.url});
    } catch (...) {
        alert = AlertContent(u"Couldn't Use Image"_s, std::current_exception());
    }
}

bool AppModel::canFetchArtwork() const
{
    return selectedRelease.value() && !isFetchingArtwork.value();
}

QString AppModel::fetchArtworkTitle() const
{
    const std::optional<ReleaseInfo> release = selectedRelease.value();
    return release ? QString(u"Download from "_s + displayName(release->source)) : u"Download Artwork"_s;
}

void AppModel::fetchArtwork()
{
    if (isFetchingArtwork.value())
        return;
    const std::optional<ReleaseInfo> release = selectedRelease.value();
    if (!release) {
        alert = AlertContent(u"No Release Selected"_s,
                             std::make_exception_ptr(CoverArtError::noReleaseSelected()));
        return;
    }
    isFetchingArtwork = true;
    m_tasks.start(
        [this, release = *release](std::stop_token stop) { return downloadArtwork(release, stop); });
}

QCoro::Task<DownloadedCoverArt> AppModel::fetchCover(ReleaseInfo release, std::stop_token stop)
{
    if (release.source == MetadataSource::musicBrainz)
        co_return co_await m_services.coverArtService.fetchForMusicBrainz(release.id, stop);
    co_return co_await m_services.coverArtService.fetchForDiscogs(release, stop);
}

QCoro::Task<> AppModel::downloadArtwork(ReleaseInfo release, std::stop_token stop)
{
    try {
        const DownloadedCoverArt download = co_await fetchCover(release, stop);
        const auto preparation = [download, budget = artworkBudget(), folder = m_services.artworkFolder] {
            return saveAndPrepare(folder, download, budget);
        };
        const UsableArt art = co_await inBackground(preparation);
        setCoverArt(art.prepared, art.picture, displayName(download.source));
    } catch (const CancellationError &) {
        isFetchingArtwork = false;
        throw;
    } catch (...) {
        alert = AlertContent(u"Couldn't Fetch Artwork"_s, std::current_exception());
    }
    isFetchingArtwork = false;
}

} // namespace tonearm
