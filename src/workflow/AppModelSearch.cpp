// SPDX-License-Identifier: GPL-3.0-or-later
// The search for releases, and how a chosen one fills in the job.
#include "workflow/AppModel.h"

#include "support/Cancellation.h"
#include "support/Text.h"
#include "workflow/records/DigitText.h"

#include <algorithm>
#include <utility>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

QString foundMessage(qsizetype count)
{
    if (count == 0)
        return u"No releases matched that artist and album."_s;
    return u"Found %1."_s.arg(counted(count, u"release"_s));
}

QString matchedMessage(qsizetype count, const DiscInfo &disc)
{
    if (count == 1)
        return u"Matched 1 release exactly."_s;
    if (count > 1)
        return u"Matched %1 pressings of this disc."_s.arg(count);
    return disc.hasDiscTitles()
               ? u"This disc isn't in MusicBrainz — using the titles on the disc."_s
               : u"This disc isn't in MusicBrainz. Search by artist and album, or type the titles."_s;
}

QString mappedMessage(qsizetype tracks, qsizetype chapters, bool isDisc)
{
    if (tracks == 0)
        return u"That release has no tracklist. Enter titles by hand."_s;
    const QString place = isDisc ? u"CD tracks"_s : u"chapters"_s;
    return u"Mapped %1 titles onto the %2."_s.arg(QString::number(std::min(tracks, chapters)), place);
}

void setUnlessEmpty(QProperty<QString> &field, const QString &text)
{
    if (!text.isEmpty())
        field = text;
}

qsizetype indexOf(const QList<ReleaseInfo> &releases, const QString &id)
{
    const auto hasId = [&id](const ReleaseInfo &release) { return release.id == id; };
    const auto found = std::find_if(releases.begin(), releases.end(), hasId);
    return found == releases.end() ? -1 : found - releases.begin();
}

} // namespace

bool AppModel::canSearch() const
{
    return !searchTask.value() &&
           (!trimmed(artist.value()).isEmpty() || !trimmed(albumTitle.value()).isEmpty());
}

void AppModel::startSearch()
{
    if (!canSearch())
        return;
    currentState = WorkflowState::Kind::searchingMetadata;
    searchResults = QList<ReleaseInfo>();
    searchNotices = QList<MetadataSearchOutcome::Notice>();
    selectedReleaseID = std::nullopt;
    isDiscLookup = false;
    isLoadingReleases = true;
    searchTask = m_tasks.start([this, by = artist.value(), title = albumTitle.value()](std::stop_token stop) {
        return search(by, title, stop);
    });
}

QCoro::Task<> AppModel::search(QString byArtist, QString title, std::stop_token stop)
{
    const MetadataSearchOutcome outcome = co_await m_services.metadataSearch.search(byArtist, title, stop);
    if (!stop.stop_requested())
        showFound(outcome);
    searchTask = std::nullopt;
    isLoadingReleases = false;
}

void AppModel::showFound(const MetadataSearchOutcome &outcome)
{
    isDiscLookup = false;
    searchResults = outcome.releases;
    searchNotices = outcome.notices;
    currentState =
        chapters.value().isEmpty() ? WorkflowState::Kind::idle : WorkflowState::Kind::awaitingUserMapping;
    isShowingSearchResults = !outcome.releases.isEmpty();
    progressMessage = foundMessage(outcome.releases.size());
}

QCoro::Task<> AppModel::lookUpDisc(DiscInfo disc, std::stop_token stop)
{
    currentState = WorkflowState::Kind::searchingMetadata;
    const MetadataSearchOutcome outcome = co_await m_services.metadataSearch.lookUpDisc(disc.discID, stop);
    throwIfCancelled(stop);
    const std::optional<DiscInfo> loaded = loadedDisc.value();
    if (loaded && loaded->volumeURL == disc.volumeURL) {
        isDiscLookup = true;
        searchResults = outcome.releases;
        searchNotices = outcome.notices;
        currentState = WorkflowState::Kind::awaitingUserMapping;
        progressMessage = matchedMessage(outcome.releases.size(), disc);
    }
    isLoadingReleases = false;
}

void AppModel::selectRelease(const std::optional<QString> &id)
{
    const QList<ReleaseInfo> releases = searchResults.value();
    const qsizetype index = id ? indexOf(releases, *id) : -1;
    if (index < 0) {
        selectedRelease = std::nullopt;
        return;
    }
    loadingReleaseID = id;
    m_tasks.start(
        [this, summary = releases[index]](std::stop_token stop) { return loadRelease(summary, stop); });
}

// Nothing here keeps a second choice from being made meanwhile, as the sheet takes none while
// `loadingReleaseID` is set; of two, the one that comes back last counts. With the earlier one dropped, its
// failure would go unheard.
QCoro::Task<> AppModel::loadRelease(ReleaseInfo summary, std::stop_token stop)
{
    try {
        const ReleaseInfo release = co_await m_services.metadataSearch.complete(summary, stop);
        throwIfCancelled(stop);
        takeOver(release);
    } catch (const CancellationError &) {
        // Nobody is told.
    } catch (...) {
        currentState = WorkflowState::error(describe(std::current_exception()).description);
        alert = AlertContent(u"Couldn't Load Tracklist"_s, std::current_exception());
    }
    loadingReleaseID = std::nullopt;
}

void AppModel::takeOver(const ReleaseInfo &release)
{
    selectedRelease = release;
    QList<ReleaseInfo> releases = searchResults.value();
    if (const qsizetype index = indexOf(releases, release.id); index >= 0) {
        releases[index] = release;
        searchResults = releases;
    }
    if (m_settings.autoMapOnSelect())
        applyTracklist(release.tracks);
    setUnlessEmpty(artist, release.artist);
    setUnlessEmpty(albumTitle, release.title);
    setUnlessEmpty(albumYear, firstFourDigits(release.year));
    if (release.matchedDiscPosition && release.discCount && *release.discCount >= 2) {
        discNumber = QString::number(*release.matchedDiscPosition);
        discTotal = QString::number(*release.discCount);
    }
    currentState = WorkflowState::Kind::awaitingUserMapping;
    progressMessage = mappedMessage(release.tracks.size(), chapters.value().size(), isDiscSource());
    isShowingSearchResults = false;
}

// By position alone: a release may name, number and time its tracks as it likes.
void AppModel::applyTracklist(const QList<TrackInfo> &tracks)
{
    QList<ChapterInfo> mapped = chapters.value();
    for (qsizetype index = 0; index < mapped.size(); ++index)
        mapped[index].mappedTitle = index < tracks.size() ? tracks[index].title : mapped[index].originalTitle;
    chapters = mapped;
}

std::optional<QString> AppModel::tracklistMismatchNote() const
{
    const std::optional<ReleaseInfo> release = selectedRelease.value();
    const qsizetype chapterCount = chapters.value().size();
    const qsizetype trackCount = release ? release->tracks.size() : 0;
    if (trackCount == 0 || chapterCount == 0 || trackCount == chapterCount)
        return std::nullopt;
    const bool isDisc = isDiscSource();
    const QString source =
        (isDisc ? u"the disc has %1 tracks"_s : u"the file has %1 chapters"_s).arg(chapterCount);
    const QString sentence =
        u"This release has %1 tracks but %2. "_s.arg(QString::number(trackCount), source);
    if (trackCount > chapterCount)
        return QString(sentence + u"The last %1 tracks were ignored."_s.arg(trackCount - chapterCount));
    const QString kept = isDisc ? u"The last %1 kept their titles from the disc."_s
                                : u"The last %1 kept their original chapter titles."_s;
    return QString(sentence + kept.arg(chapterCount - trackCount));
}

} // namespace tonearm
