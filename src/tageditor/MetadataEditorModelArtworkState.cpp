// SPDX-License-Identifier: GPL-3.0-or-later
// What the artwork column shows.
#include "artwork/ByteCountText.h"
#include "tageditor/MetadataEditorModel.h"
#include "tageditor/PendingEdits.h"

#include <algorithm>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

using Kind = ArtworkIntent::Kind;

QString caption(qint64 width, qint64 height, qint64 byteCount)
{
    return u"%1 × %2 · %3"_s.arg(QString::number(width), QString::number(height), byteCountText(byteCount));
}

// Each intent once.
QList<ArtworkIntent> intentsOf(const QList<EditableAudioFile> &rows,
                               const QHash<QUrl, ArtworkIntent> &pending)
{
    QList<ArtworkIntent> intents;
    for (const EditableAudioFile &row : rows)
        if (const ArtworkIntent intent = pending.value(row.url); !intents.contains(intent))
            intents.append(intent);
    return intents;
}

// Of a row whose picture isn't known it is empty.
QSet<QString> digestsOf(const QList<EditableAudioFile> &rows, const QHash<QUrl, ArtworkFingerprint> &known)
{
    QSet<QString> digests;
    for (const EditableAudioFile &row : rows) {
        const auto fingerprint = known.constFind(row.url);
        digests.insert(fingerprint == known.constEnd() ? QString() : fingerprint->digest);
    }
    return digests;
}

QSet<QUrl> urlsOverBudget(const QList<EditableAudioFile> &rows, const QHash<QUrl, ArtworkFingerprint> &known,
                          qint64 budget)
{
    QSet<QUrl> urls;
    for (const EditableAudioFile &row : rows) {
        const auto fingerprint = known.constFind(row.url);
        if (fingerprint != known.constEnd() && fingerprint->byteCount > budget)
            urls.insert(row.url);
    }
    return urls;
}

} // namespace

QList<ArtworkIntent> MetadataEditorModel::selectedIntents() const
{
    return m_selectedIntents.from(selectedFiles(), changes.value().artworkIntents, intentsOf);
}

bool MetadataEditorModel::isArtworkPendingForSelection() const
{
    const QList<ArtworkIntent> intents = selectedIntents();
    return std::any_of(intents.begin(), intents.end(),
                       [](const ArtworkIntent &intent) { return intent.kind != Kind::untouched; });
}

EditorArtworkState MetadataEditorModel::artworkState() const
{
    const QList<EditableAudioFile> rows = selectedFiles();
    if (rows.isEmpty())
        return EditorArtworkState::note(u"No selection"_s);
    const QList<ArtworkIntent> intents = selectedIntents();
    if (intents.size() > 1)
        return EditorArtworkState::warning(u"Pending artwork differs"_s);
    switch (intents.first().kind) {
    case Kind::remove:
        return EditorArtworkState::note(u"Artwork will be removed"_s);
    case Kind::replace: {
        const std::optional<QImage> preview = chosenArtworkPreview.value();
        return preview ? EditorArtworkState::image(*preview) : EditorArtworkState::loading();
    }
    case Kind::untouched:
        return embeddedArtworkState(rows);
    }
    Q_UNREACHABLE();
}

EditorArtworkState MetadataEditorModel::embeddedArtworkState(const QList<EditableAudioFile> &rows) const
{
    const auto withArt = std::count_if(
        rows.begin(), rows.end(), [](const EditableAudioFile &row) { return row.tags.hasAttachedPicture; });
    if (withArt == 0)
        return EditorArtworkState::note(u"No artwork"_s);
    if (withArt < rows.size())
        return EditorArtworkState::warning(u"Some files have no artwork"_s);
    const QSet<QString> digests = selectedDigests();
    const bool isAllKnown = !digests.contains(QString());
    if (isAllKnown && digests.size() > 1)
        return EditorArtworkState::warning(u"Selected files have different artwork"_s);
    const QHash<QUrl, QImage> previews = artworkPreviews.value();
    const auto preview = previews.constFind(rows.first().url);
    if (isAllKnown && preview != previews.constEnd())
        return EditorArtworkState::image(*preview);
    // Also while the selection has yet to stand long enough: what hasn't been tried hasn't failed.
    if (isReadingArtwork.value() || m_isAwaitingArtwork.value())
        return EditorArtworkState::loading();
    return EditorArtworkState::warning(u"Artwork couldn't be read"_s);
}

QSet<QString> MetadataEditorModel::selectedDigests() const
{
    return m_selectedDigests.from(selectedFiles(), artworkFingerprints.value(), digestsOf);
}

std::optional<QString> MetadataEditorModel::artworkCaption() const
{
    if (const std::optional<PreparedCoverArt> chosen = chosenArtwork.value()) {
        if (!isArtworkPendingForSelection())
            return std::nullopt;
        return caption(chosen->pixelWidth, chosen->pixelHeight, chosen->byteCount);
    }
    const QSet<QString> digests = selectedDigests();
    if (digests.size() != 1 || digests.contains(QString()) ||
        selectedIntents() == QList{ArtworkIntent::remove()})
        return std::nullopt;
    const ArtworkFingerprint common = *fingerprintOf(selectedFiles().first().url);
    return caption(common.pixelWidth, common.pixelHeight, common.byteCount);
}

std::optional<ViewableArtwork> MetadataEditorModel::artworkForViewer() const
{
    const std::optional<PreparedCoverArt> chosen = chosenArtwork.value();
    const std::optional<QImage> preview = chosenArtworkPreview.value();
    if (chosen && preview && isArtworkPendingForSelection())
        return ViewableArtwork{*preview, chosen->pixelWidth, chosen->pixelHeight, artworkCaption()};
    const EditorArtworkState state = artworkState();
    if (state.kind != EditorArtworkState::Kind::image)
        return std::nullopt;
    const std::optional<ArtworkFingerprint> first = fingerprintOf(selectedFiles().first().url);
    if (!first)
        return std::nullopt;
    return ViewableArtwork{state.picture, first->pixelWidth, first->pixelHeight, artworkCaption()};
}

bool MetadataEditorModel::canRemoveArtwork() const
{
    const QList<EditableAudioFile> rows = selectedFiles();
    return isArtworkPendingForSelection() ||
           std::any_of(rows.begin(), rows.end(),
                       [](const EditableAudioFile &row) { return row.tags.hasAttachedPicture; });
}

bool MetadataEditorModel::isOverBudget(const EditableAudioFile &row) const
{
    return tonearm::isOverBudget(fingerprintOf(row.url), artworkBudget());
}

QSet<QUrl> MetadataEditorModel::selectedOverBudget() const
{
    return m_selectedOverBudget.from(selectedFiles(), artworkFingerprints.value(), artworkBudget(),
                                     urlsOverBudget);
}

bool MetadataEditorModel::hasArtworkOverBudget() const
{
    return !selectedOverBudget().isEmpty();
}

QString MetadataEditorModel::optimizeLabel() const
{
    return u"Optimize cover art over %1 KB"_s.arg(m_settings.artworkSizeBudgetKilobytes());
}

bool MetadataEditorModel::isOptimizing() const
{
    const QSet<QUrl> &optimizing = changes.value().optimizing;
    return hasArtworkOverBudget() && optimizing.contains(selectedOverBudget());
}

} // namespace tonearm
