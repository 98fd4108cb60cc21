// SPDX-License-Identifier: GPL-3.0-or-later
// What the user wants to become of the pictures.
#include "artwork/CoverArtError.h"
#include "artwork/CoverArtPreparation.h"
#include "artwork/ImageFileName.h"
#include "artwork/PictureDecoding.h"
#include "support/Background.h"
#include "support/PathText.h"
#include "tageditor/MetadataEditorModel.h"

#include <utility>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

struct ReadyArtwork
{
    PreparedCoverArt prepared;
    std::optional<QImage> preview;
};

} // namespace

void MetadataEditorModel::chooseArtwork()
{
    m_tasks.start([this](std::stop_token stop) -> QCoro::Task<> {
        OpenPanelRequest request;
        request.title = u"Choose Artwork"_s;
        request.prompt = u"Choose"_s;
        request.extensions = imageExtensions();
        const std::optional<QUrl> chosen = co_await m_services.panels.choose(request, stop);
        if (chosen)
            acceptImage(*chosen);
    });
}

bool MetadataEditorModel::acceptImage(const QUrl &url)
{
    if (selectedFiles().isEmpty())
        return false;
    if (!hasImageExtension(url)) {
        const CoverArtError error = CoverArtError::unsupportedImageType(lowerCaseExtension(url).toUpper());
        alert = AlertContent(u"Unsupported Image"_s, std::make_exception_ptr(error));
        return false;
    }
    requestArtwork(url, true);
    return true;
}

// One picture after the other, so that of two for the same files the one that was chosen last remains.
void MetadataEditorModel::requestArtwork(const QUrl &image, bool isAlertWanted)
{
    m_artworkRequests.append({.image = image,
                              .budget = isOptimizing() ? std::optional(artworkBudget()) : std::nullopt,
                              .targets = selectedURLs(),
                              .isAlertWanted = isAlertWanted});
    if (m_preparationTask)
        return;
    isPreparingArtwork = true;
    m_preparationTask = m_tasks.start([this](std::stop_token stop) { return carryOutArtworkRequests(stop); });
}

void MetadataEditorModel::cancelArtworkRequests()
{
    cancel(m_preparationTask);
    m_preparationTask.reset();
    isPreparingArtwork = false;
    m_artworkRequests.clear();
}

QCoro::Task<> MetadataEditorModel::carryOutArtworkRequests(std::stop_token stop)
{
    while (!stop.stop_requested() && !m_artworkRequests.isEmpty()) {
        const ArtworkRequest request = m_artworkRequests.takeFirst();
        co_await carryOut(request, stop);
    }
    if (isTaskOf(stop, m_preparationTask)) {
        m_preparationTask.reset();
        isPreparingArtwork = false;
    }
}

QCoro::Task<> MetadataEditorModel::carryOut(ArtworkRequest request, std::stop_token stop)
{
    const auto preparation = [request, folder = m_services.artworkFolder] {
        const PreparedCoverArt prepared = CoverArtPreparation(folder).prepare(request.image, request.budget);
        return ReadyArtwork{prepared, screenPicture(prepared.url)};
    };
    try {
        const ReadyArtwork ready = co_await inBackground(preparation);
        if (stop.stop_requested())
            discard(ready.prepared.url);
        else
            apply(ready.prepared, ready.preview, request.targets);
    } catch (...) {
        if (request.isAlertWanted && !stop.stop_requested())
            alert = AlertContent(u"Couldn't Read That Image"_s, std::current_exception());
    }
}

void MetadataEditorModel::apply(const PreparedCoverArt &prepared, const std::optional<QImage> &preview,
                                const QSet<QUrl> &targets)
{
    const std::optional<PreparedCoverArt> earlier = chosenArtwork.value();
    chosenArtwork = prepared;
    chosenArtworkPreview = preview;
    setIntents(targets, ArtworkIntent::replace(prepared.url));
    completionMessage = std::nullopt;
    if (earlier && earlier->url != prepared.url)
        discard(earlier->url);
}

// The picture may be the user's own, in a folder that takes its time.
void MetadataEditorModel::discard(const QUrl &picture)
{
    const auto removal = [folder = m_services.artworkFolder, picture] { folder->discard(picture); };
    m_tasks.start([removal](std::stop_token /*stop*/) { return inBackground(removal); });
}

QSet<QUrl> MetadataEditorModel::selectedURLs() const
{
    const QList<EditableAudioFile> rows = selectedFiles();
    QSet<QUrl> urls;
    urls.reserve(rows.size());
    for (const EditableAudioFile &row : rows)
        urls.insert(row.url);
    return urls;
}

void MetadataEditorModel::setIntents(const QSet<QUrl> &urls, const ArtworkIntent &intent)
{
    TagChangeSet edited = changes.value();
    for (const QUrl &url : urls)
        edited.artworkIntents.insert(url, intent);
    changes = edited;
}

void MetadataEditorModel::dropChosenArtwork()
{
    if (const std::optional<PreparedCoverArt> chosen = chosenArtwork.value())
        discard(chosen->url);
    chosenArtwork = std::nullopt;
    chosenArtworkPreview = std::nullopt;
}

void MetadataEditorModel::removeArtwork()
{
    cancelArtworkRequests();
    dropChosenArtwork();
    setIntents(selectedURLs(), ArtworkIntent::remove());
    completionMessage = std::nullopt;
}

void MetadataEditorModel::setOptimizing(bool on)
{
    TagChangeSet edited = changes.value();
    const QSet<QUrl> selected = selectedURLs();
    if (on)
        edited.optimizing.unite(selected);
    else
        edited.optimizing.subtract(selected);
    changes = edited;
    completionMessage = std::nullopt;
    const std::optional<PreparedCoverArt> chosen = chosenArtwork.value();
    if (chosen && !selected.isEmpty())
        requestArtwork(chosen->originalURL, false);
}

} // namespace tonearm
