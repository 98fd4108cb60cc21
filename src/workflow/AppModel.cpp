// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/AppModel.h"

#include "support/PathText.h"
#include "support/Text.h"
#include "workflow/records/DigitText.h"

#include <QDir>

#include <algorithm>
#include <utility>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

bool isUntitled(const ChapterInfo &chapter)
{
    return trimmed(chapter.mappedTitle).isEmpty();
}

QString standardizedPath(const QUrl &url)
{
    return QDir::cleanPath(url.toLocalFile());
}

QString trimmedSlashes(QString path)
{
    while (path.startsWith(u'/'))
        path.remove(0, 1);
    while (path.endsWith(u'/'))
        path.chop(1);
    return path;
}

} // namespace

AppModel::AppModel(AppSettings &settings, Services services)
    : outputFolderURL(settings.defaultOutputDirectory())
    , m_settings(settings)
    , m_services(std::move(services))
    , m_onLogChange(lastLogURL.addNotifier([this] { followLog(); }))
{
}

AppModel::~AppModel() = default;

bool AppModel::hasSource() const
{
    return inputFileURL.value() || loadedDisc.value();
}

std::optional<QString> AppModel::sourceName() const
{
    if (const std::optional<DiscInfo> disc = loadedDisc.value())
        return disc->volumeName;
    const std::optional<QUrl> file = inputFileURL.value();
    return file ? std::optional(lastPathComponent(*file)) : std::nullopt;
}

bool AppModel::isFFmpegInstalled() const
{
    return std::holds_alternative<FFmpegInstallation>(ffmpegStatus.value());
}

bool AppModel::canEncode() const
{
    return isFFmpegInstalled() && hasSource() && outputFolderURL.value() && !chapters.value().isEmpty() &&
           untitledChapters().isEmpty() && !encodingTask.value();
}

QString AppModel::statusText() const
{
    const WorkflowState state = currentState.value();
    switch (state.kind()) {
    case WorkflowState::Kind::error:
        return state.errorText();
    case WorkflowState::Kind::idle:
        return chapters.value().isEmpty() ? QString() : progressMessage.value();
    case WorkflowState::Kind::extractingChapters:
        return u"Reading chapters…"_s;
    case WorkflowState::Kind::readingDisc:
        return u"Reading the disc…"_s;
    case WorkflowState::Kind::searchingMetadata:
        return u"Searching MusicBrainz and Discogs…"_s;
    case WorkflowState::Kind::awaitingUserMapping:
    case WorkflowState::Kind::encoding:
    case WorkflowState::Kind::complete:
        return progressMessage.value();
    }
    Q_UNREACHABLE();
}

QList<ChapterInfo> AppModel::untitledChapters() const
{
    const QList<ChapterInfo> all = chapters.value();
    QList<ChapterInfo> untitled;
    std::copy_if(all.begin(), all.end(), std::back_inserter(untitled), isUntitled);
    return untitled;
}

AudioMetadata AppModel::currentMetadata() const
{
    AudioMetadata metadata;
    metadata.artist = trimmed(artist.value());
    metadata.album = trimmed(albumTitle.value());
    metadata.year = albumYear.value();
    metadata.genre = trimmed(genre.value());
    metadata.discNumber = discNumber.value();
    metadata.discTotal = discTotal.value();
    if (const std::optional<PreparedCoverArt> art = coverArt.value())
        metadata.coverArtURL = art->url;
    return metadata;
}

std::optional<QUrl> AppModel::destinationFolder() const
{
    const std::optional<QUrl> folder = outputFolderURL.value();
    if (!folder)
        return std::nullopt;
    return m_services.encoder.outputDirectory(*folder, currentMetadata(),
                                              m_settings.organizeIntoArtistAlbumFolders());
}

std::optional<QString> AppModel::destinationSubpath() const
{
    const std::optional<QUrl> destination = destinationFolder();
    if (!destination)
        return std::nullopt;
    const QString base = standardizedPath(*outputFolderURL.value());
    const QString whole = standardizedPath(*destination);
    if (!whole.startsWith(base) || whole.size() <= base.size())
        return std::nullopt;
    return trimmedSlashes(whole.sliced(base.size()));
}

std::optional<QString> AppModel::yearWarning() const
{
    const QString year = trimmedBlanks(albumYear.value());
    if (year.isEmpty() || !firstFourDigits(year).isEmpty())
        return std::nullopt;
    return u"Year needs four digits, e.g. 1969 — it won't be tagged as it stands."_s;
}

} // namespace tonearm
