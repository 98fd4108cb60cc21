// SPDX-License-Identifier: GPL-3.0-or-later
#include "metadata/MetadataSearchService.h"

#include "metadata/DiscogsService.h"
#include "metadata/MergedReleases.h"
#include "metadata/MusicBrainzService.h"
#include "metadata/SearchNotice.h"

#include <exception>

namespace tonearm {

namespace {

// Waits for a client's answer. Never fails: a failure becomes a notice.
QCoro::Task<MetadataSearchOutcome> outcomeOf(QCoro::Task<QList<ReleaseInfo>> answer, MetadataSource source)
{
    MetadataSearchOutcome outcome;
    try {
        outcome.releases = co_await answer;
    } catch (...) {
        if (const auto notice = noticeOf(std::current_exception(), source))
            outcome.notices.append(*notice);
    }
    co_return outcome;
}

} // namespace

MetadataSearchService::MetadataSearchService(MusicBrainzService &musicBrainz, DiscogsService &discogs)
    : m_musicBrainz(musicBrainz)
    , m_discogs(discogs)
{
}

QCoro::Task<MetadataSearchOutcome> MetadataSearchService::search(QString artist, QString album,
                                                                 std::stop_token stop)
{
    // A task runs from its start, so both are under way before either is awaited.
    const auto fromMusicBrainz =
        outcomeOf(m_musicBrainz.search(artist, album, stop), MetadataSource::musicBrainz);
    const auto fromDiscogs = outcomeOf(m_discogs.search(artist, album, stop), MetadataSource::discogs);
    MetadataSearchOutcome merged = co_await fromMusicBrainz;
    const MetadataSearchOutcome others = co_await fromDiscogs;
    merged.notices.append(others.notices);
    merged.releases = sortedForAlbum(withoutRepetitions(merged.releases + others.releases), album);
    co_return merged;
}

QCoro::Task<MetadataSearchOutcome> MetadataSearchService::lookUpDisc(QString discID, std::stop_token stop)
{
    co_return co_await outcomeOf(m_musicBrainz.lookUpDisc(discID, stop), MetadataSource::musicBrainz);
}

QCoro::Task<ReleaseInfo> MetadataSearchService::complete(ReleaseInfo release, std::stop_token stop)
{
    if (!release.tracks.isEmpty())
        co_return release;
    if (release.source == MetadataSource::discogs)
        co_return filledFromSummary(co_await m_discogs.details(release.id, stop), release);
    release.tracks = co_await m_musicBrainz.tracks(release.id, stop);
    co_return release;
}

} // namespace tonearm
