// SPDX-License-Identifier: GPL-3.0-or-later
#include "encoding/AudioEncodingService.h"

#include "encoding/FFmpegComplaint.h"
#include "encoding/FileNaming.h"
#include "support/Background.h"
#include "support/Cancellation.h"
#include "support/Text.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <memory>
#include <system_error>
#include <utility>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

// ffmpeg counts a source that ends early as read, and only complains. A complaint alone may be about a
// damaged spot that it got over, and a chapter alone may reach beyond the sound.
void throwIfIncomplete(double position, double duration, QByteArrayView stderrBytes)
{
    constexpr double tolerance = 1;
    if (!(duration - position > tolerance))
        return;
    if (const std::optional<QString> complaint = lastComplaint(stderrBytes))
        throw AudioEncodingError::incompleteTrack(position, duration, *complaint);
}

} // namespace

AudioEncodingService::AudioEncodingService(ToolLocation tools, ProcessRunner processRunner)
    : m_tools(std::move(tools))
    , m_processRunner(processRunner)
{
}

void AudioEncodingService::validate(const QList<ChapterInfo> &chapters, const AudioMetadata &metadata) const
{
    if (chapters.isEmpty())
        throw AudioEncodingError::noChapters();
    const auto untitled = std::count_if(chapters.begin(), chapters.end(), [](const ChapterInfo &chapter) {
        return trimmed(chapter.mappedTitle).isEmpty();
    });
    if (untitled > 0)
        throw AudioEncodingError::untitledChapters(untitled);
    if (metadata.coverArtURL && !QFileInfo(metadata.coverArtURL->toLocalFile()).isReadable())
        throw AudioEncodingError::coverArtUnreadable(*metadata.coverArtURL);
}

void AudioEncodingService::prepareOutputDirectory(const QUrl &directory) const
{
    const QString path = directory.toLocalFile();
    const bool isThere = QFileInfo::exists(path) || QDir().mkpath(path);
    const QFileInfo folder(path);
    if (!isThere || !folder.isDir())
        throw AudioEncodingError::outputDirectoryUnavailable(directory);
    if (!folder.isWritable())
        throw AudioEncodingError::outputDirectoryNotWritable(directory);
}

QUrl AudioEncodingService::outputDirectory(const QUrl &base, const AudioMetadata &metadata,
                                           bool organize) const
{
    if (!organize)
        return base;
    QString path = base.toLocalFile();
    for (const QString &text : {metadata.artist, metadata.album}) {
        if (const std::optional<QString> name = cleanedFolderName(text))
            path = QDir(path).filePath(*name);
    }
    return QUrl::fromLocalFile(path);
}

QString AudioEncodingService::outputFilename(const QString &title, qint64 number) const
{
    return tonearm::outputFilename(title, number);
}

QList<QUrl> AudioEncodingService::existingOutputs(const QList<ChapterInfo> &chapters,
                                                  const QUrl &directory) const
{
    const QDir folder(directory.toLocalFile());
    QList<QUrl> result;
    for (qsizetype index = 0; index < chapters.size(); ++index) {
        const QString path = folder.filePath(outputFilename(chapters[index].mappedTitle, index + 1));
        if (QFileInfo::exists(path))
            result.append(QUrl::fromLocalFile(path));
    }
    return result;
}

QStringList AudioEncodingService::arguments(const TrackEncoding &track) const
{
    return ffmpegArguments(track);
}

QCoro::Task<> AudioEncodingService::encode(TrackEncoding track, ProgressReporter::Callback onFractionComplete,
                                           std::stop_token stop) const
{
    // A copy, because the service itself may be gone after a suspension.
    const ProcessRunner processRunner = m_processRunner;
    throwIfCancelled(stop);
    const auto reporter = std::make_shared<ProgressReporter>(track.duration(), std::move(onFractionComplete));
    const QUrl ffmpeg = m_tools.toolURL(u"ffmpeg"_s);
    const QStringList commandLine = arguments(track);
    const ProcessRunner::LineCallback onStderrLine = [reporter](const QString &line) {
        reporter->handle(line);
    };

    std::exception_ptr failure;
    try {
        const auto result = co_await processRunner.run(ffmpeg, commandLine, onStderrLine, stop);
        throwIfIncomplete(reporter->position(), track.duration(), result.stderrBytes);
    } catch (const std::system_error &) {
        // ffmpeg couldn't be started, so what lies at the output is the user's file from before.
        throw;
    } catch (...) {
        failure = std::current_exception();
    }
    if (!failure)
        co_return;
    // Named, because GCC 12 destroys a closure that is made inside a co_await expression twice.
    const auto removal = [output = track.output.toLocalFile()] { return QFile::remove(output); };
    co_await inBackground(removal);
    std::rethrow_exception(failure);
}

} // namespace tonearm
