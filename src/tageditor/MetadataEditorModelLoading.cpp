// SPDX-License-Identifier: GPL-3.0-or-later
// How a folder comes in.
#include "support/Background.h"
#include "support/Cancellation.h"
#include "tageditor/BoundedReading.h"
#include "tageditor/FilePath.h"
#include "tageditor/MetadataEditorModel.h"
#include "tageditor/SharedTexts.h"

#include <QScopeGuard>

#include <numeric>
#include <utility>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

EditableAudioFile placeholderRow(const QUrl &url)
{
    return {.url = url, .tags = {}, .unreadableReason = {}, .modificationDate = {}};
}

struct Listing
{
    AudioFolderContents contents;
    QList<EditableAudioFile> placeholders;
};

Listing listingOf(const AudioFileTagService &service, const QUrl &folder)
{
    Listing listing{.contents = service.audioFiles(folder), .placeholders = {}};
    for (const QUrl &url : std::as_const(listing.contents.files))
        listing.placeholders.append(placeholderRow(url));
    return listing;
}

EditableAudioFile unreadableRow(const QUrl &url)
{
    EditableAudioFile row = placeholderRow(url);
    row.unreadableReason = u"Tags couldn't be read."_s;
    return row;
}

// Nothing if the file can't be read, for whatever reason.
QCoro::Task<std::optional<EditableAudioFile>> readRow(AudioFileTagService service, QUrl url,
                                                      std::stop_token stop)
{
    EditableAudioFile row = placeholderRow(url);
    try {
        const AudioFileTags tags = co_await service.readTags(url, stop);
        row.tags = tags;
        const auto dating = [url] { return contentModificationDate(url); };
        const std::optional<QDateTime> date = co_await inBackground(dating);
        row.modificationDate = date;
    } catch (...) {
        co_return std::nullopt;
    }
    co_return row;
}

QList<EditableAudioFile> rowsOf(const QList<QUrl> &urls, const QList<std::optional<EditableAudioFile>> &read)
{
    QList<EditableAudioFile> rows;
    rows.reserve(urls.size());
    for (qsizetype place = 0; place < urls.size(); ++place)
        rows.append(read.at(place) ? *read.at(place) : unreadableRow(urls.at(place)));
    return rows;
}

} // namespace

MetadataEditorModel::ReadRows MetadataEditorModel::readRowsOf(const QList<EditableAudioFile> &rows)
{
    ReadRows read{.rows = rows, .readable = {}, .readablePlaces = {}};
    read.readable.reserve(rows.size());
    for (qsizetype place = 0; place < rows.size(); ++place) {
        if (rows[place].unreadableReason)
            continue;
        read.readable.insert(rows[place].url);
        read.readablePlaces.append(place);
    }
    return read;
}

void MetadataEditorModel::chooseFolder()
{
    m_tasks.start([this](std::stop_token stop) -> QCoro::Task<> {
        OpenPanelRequest request;
        request.title = u"Choose Folder"_s;
        request.prompt = u"Choose"_s;
        request.target = OpenPanelRequest::Target::folder;
        request.message = u"Choose a folder of FLAC, MP3 or M4A files. Subfolders aren't searched."_s;
        request.startFolder = folderURL.value();
        request.offersNewFolders = false;
        const std::optional<QUrl> chosen = co_await m_services.panels.choose(request, stop);
        if (!chosen)
            co_return;
        if (hasPendingChanges()) {
            PendingFolderChange change;
            change.url = *chosen;
            pendingFolderChange = change;
        } else {
            openFolder(*chosen);
        }
    });
}

void MetadataEditorModel::confirmFolderChange()
{
    const std::optional<PendingFolderChange> change = pendingFolderChange.value();
    if (!change)
        return;
    pendingFolderChange = std::nullopt;
    openFolder(change->url);
}

// What still runs for the folder has nothing to show any more.
void MetadataEditorModel::leaveFolder()
{
    cancel(m_loadTask);
    cancel(m_artworkTask);
    cancelArtworkRequests();
    m_folder.request_stop();
    m_folder = std::stop_source();
    selection = QSet<QUrl>();
    changes = TagChangeSet();
    files = QList<EditableAudioFile>();
    emptyArtworkCache();
    dropChosenArtwork();
    saveFailures = QList<SaveFailure>();
    completionMessage = std::nullopt;
    saveStatus = std::nullopt;
}

void MetadataEditorModel::openFolder(const QUrl &url)
{
    leaveFolder();
    folderURL = url;
    hasLoadedFolder = true;
    // At once, so that the folder never seems to be empty.
    isLoading = true;
    loadProgress = 0;
    m_loadTask = m_tasks.start([this, url](std::stop_token stop) { return loadFolder(url, stop); });
}

void MetadataEditorModel::stopLoading()
{
    cancel(m_loadTask);
}

QCoro::Task<> MetadataEditorModel::loadFolder(QUrl folder, std::stop_token stop)
{
    const auto atEnd = qScopeGuard([this, &stop] {
        // A load that a newer one has taken the place of leaves the fields to that one.
        if (!isTaskOf(stop, m_loadTask))
            return;
        isLoading = false;
        loadProgress = 0;
        m_loadTask.reset();
    });
    co_await showFolder(folder, stop);
}

QCoro::Task<> MetadataEditorModel::showFolder(QUrl folder, std::stop_token stop)
{
    const auto listing = [service = m_services.tagService, folder] { return listingOf(service, folder); };
    Listing listed;
    try {
        const Listing found = co_await inBackground(listing);
        listed = found;
    } catch (...) {
        throwIfCancelled(stop);
        alert = AlertContent(u"Couldn't Read That Folder"_s, std::current_exception());
        co_return;
    }
    throwIfCancelled(stop);
    skippedAudioCount = listed.contents.skippedCount;
    if (listed.placeholders.isEmpty())
        co_return;
    files = std::exchange(listed.placeholders, {});
    const ReadRows read = co_await readRows(listed.contents.files, stop);
    throwIfCancelled(stop);
    files = read.rows;
    m_selectedPlaces.put(read.readablePlaces, read.rows, read.readable);
    selection = read.readable;
    readArtwork();
}

// One row for each URL.
QCoro::Task<MetadataEditorModel::ReadRows> MetadataEditorModel::readRows(QList<QUrl> urls,
                                                                         std::stop_token stop)
{
    using Row = std::optional<EditableAudioFile>;
    QList<Row> read(urls.size());
    QList<qsizetype> places(urls.size());
    std::iota(places.begin(), places.end(), 0);
    const BoundedReading<qsizetype, Row> reading{
        .read = [service = m_services.tagService, urls,
                 stop](qsizetype place) { return readRow(service, urls.at(place), stop); },
        .record =
            [this, &read, stop](qsizetype place, const Row &row, double fraction) {
                read[place] = row;
                if (!stop.stop_requested())
                    loadProgress = fraction;
            },
    };
    co_await readBounded(places, reading, stop);
    if (stop.stop_requested())
        co_return ReadRows();
    while (true) {
        const QList<RowComparator> order = sortOrder.value();
        const auto arranging = [urls, read, order] {
            QList<EditableAudioFile> rows = rowsOf(urls, read);
            shareTexts(rows);
            return readRowsOf(sortedRows(rows, order));
        };
        const ReadRows arranged = co_await inBackground(arranging);
        // The user may have chosen another order meanwhile.
        if (order == sortOrder.value())
            co_return arranged;
    }
}

} // namespace tonearm
