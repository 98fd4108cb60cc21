// SPDX-License-Identifier: GPL-3.0-or-later
// Reading the pictures that are embedded in the selected files.
#include "artwork/PictureDecoding.h"
#include "support/Background.h"
#include "support/Cancellation.h"
#include "support/InterruptibleSleep.h"
#include "tageditor/BoundedReading.h"
#include "tageditor/MetadataEditorModel.h"

#include <QScopeGuard>

#include <chrono>
#include <utility>

namespace tonearm {

using namespace std::chrono_literals;

namespace {

// Setting the fingerprints of thousands of files, and all that hangs on them, takes its time.
constexpr auto publishingInterval = 100ms;

} // namespace

struct MetadataEditorModel::ArtworkReading
{
    // Absent if the picture can't be read.
    std::optional<ArtworkFingerprint> fingerprint;
    std::optional<QImage> preview;
};

// Starts afresh with what is selected now.
void MetadataEditorModel::readArtwork()
{
    cancel(m_artworkTask);
    m_artworkTask.reset();
    publishArtwork();
    const QHash<QUrl, ArtworkFingerprint> known = artworkFingerprints.value();
    const QList<EditableAudioFile> rows = selectedFiles();
    QList<EditableAudioFile> unknown;
    for (const EditableAudioFile &row : rows)
        if (row.tags.hasAttachedPicture && !known.contains(row.url))
            unknown.append(row);
    m_isAwaitingArtwork = !unknown.isEmpty();
    if (unknown.isEmpty())
        return;
    m_artworkTask =
        m_tasks.start([this, unknown](std::stop_token stop) { return readArtworkOf(unknown, stop); });
}

QCoro::Task<> MetadataEditorModel::readArtworkOf(QList<EditableAudioFile> rows, std::stop_token stop)
{
    const auto atEnd = qScopeGuard([this, &stop] {
        publishArtwork();
        if (m_artworkReader == stop)
            isReadingArtwork = false;
        if (!isTaskOf(stop, m_artworkTask))
            return;
        m_isAwaitingArtwork = false;
        m_artworkTask.reset();
    });
    co_await interruptibleSleep(m_services.artworkDelay, stop);
    throwIfCancelled(stop);
    isReadingArtwork = true;
    m_artworkReader = stop;
    const BoundedReading<EditableAudioFile, ArtworkReading> reading{
        .read = [this, stop](EditableAudioFile row) { return readArtworkOfRow(std::move(row), stop); },
        .record =
            [this, cache = m_artworkCache.get_token()](const EditableAudioFile &row,
                                                       const ArtworkReading &read, double) {
                if (!cache.stop_requested())
                    record(row.url, read);
            },
    };
    co_await readBounded(rows, reading, stop);
}

QCoro::Task<MetadataEditorModel::ArtworkReading> MetadataEditorModel::readArtworkOfRow(EditableAudioFile row,
                                                                                       std::stop_token stop)
{
    ArtworkReading reading;
    try {
        const ArtworkFingerprint fingerprint = co_await m_services.tagService.fingerprint(row, stop);
        reading.fingerprint = fingerprint;
        reading.preview = knownPreview(fingerprint.digest);
        if (!reading.preview) {
            const auto decoding = [url = fingerprint.extractedURL] { return screenPicture(url); };
            const std::optional<QImage> decoded = co_await inBackground(decoding);
            reading.preview = decoded;
        }
    } catch (...) {
        reading = {};
    }
    co_return reading;
}

// Files of one album mostly hold the same picture, which is decoded once and kept once.
std::optional<QImage> MetadataEditorModel::knownPreview(const QString &digest) const
{
    const auto known = m_previewsByDigest.constFind(digest);
    return known == m_previewsByDigest.constEnd() ? std::nullopt : std::optional(*known);
}

void MetadataEditorModel::record(const QUrl &url, const ArtworkReading &reading)
{
    if (!reading.fingerprint)
        return;
    std::optional<QImage> preview = knownPreview(reading.fingerprint->digest);
    if (!preview)
        preview = reading.preview;
    if (preview) {
        m_previewsByDigest.insert(reading.fingerprint->digest, *preview);
        m_freshPreviews.insert(url, *preview);
    }
    m_freshFingerprints.insert(url, *reading.fingerprint);
    if (!m_sinceArtwork.isValid() || m_sinceArtwork.hasExpired(publishingInterval.count()))
        publishArtwork();
}

void MetadataEditorModel::publishArtwork()
{
    if (m_freshFingerprints.isEmpty())
        return;
    QHash<QUrl, QImage> previews = artworkPreviews.value();
    previews.insert(std::exchange(m_freshPreviews, {}));
    artworkPreviews = std::move(previews);
    QHash<QUrl, ArtworkFingerprint> fingerprints = artworkFingerprints.value();
    fingerprints.insert(std::exchange(m_freshFingerprints, {}));
    artworkFingerprints = std::move(fingerprints);
    m_sinceArtwork.start();
}

void MetadataEditorModel::emptyArtworkCache()
{
    m_artworkCache.request_stop();
    m_artworkCache = std::stop_source();
    m_freshFingerprints.clear();
    m_freshPreviews.clear();
    m_previewsByDigest.clear();
    m_sinceArtwork.invalidate();
    artworkFingerprints = QHash<QUrl, ArtworkFingerprint>();
    artworkPreviews = QHash<QUrl, QImage>();
}

} // namespace tonearm
