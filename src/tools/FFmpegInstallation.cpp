// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/FFmpegInstallation.h"

#include "support/Cancellation.h"
#include "tools/VersionText.h"

#include <exception>
#include <utility>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

// Starts a tool and returns everything it wrote.
QCoro::Task<QByteArray> probe(ProcessRunner processRunner, QUrl toolURL, std::stop_token stop)
{
    QString reason;
    try {
        const QStringList arguments{u"-hide_banner"_s, u"-version"_s};
        const ProcessRunner::LineCallback noLines;
        const ProcessRunner::RunResult result = co_await processRunner.run(toolURL, arguments, noLines, stop);
        co_return result.stdoutBytes + result.stderrBytes;
    } catch (const CancellationError &) {
        reason = u"The check was cancelled."_s;
    } catch (...) {
        reason = describe(std::current_exception()).description;
    }
    throw FFmpegNotRunnableError(toolURL.fileName(), reason);
}

// The folder as a plain path, without the "/" at its end.
QString folderOf(const QUrl &fileURL)
{
    const QString folder = fileURL.adjusted(QUrl::RemoveFilename).toLocalFile();
    return folder.size() >= 2 && folder.endsWith(u'/') ? folder.chopped(1) : folder;
}

} // namespace

FFmpegNotRunnableError::FFmpegNotRunnableError(QString tool, QString why)
    : executable(std::move(tool))
    , reason(std::move(why))
{
}

QString FFmpegNotRunnableError::description() const
{
    return executable + u" could not be started."_s;
}

std::optional<QString> FFmpegNotRunnableError::recoverySuggestion() const
{
    return u"Tonearm's copy of "_s + executable +
           u" failed to launch, which usually means the app bundle is damaged. Replacing it with a fresh "
           u"download should restore it.\n\n"_s +
           reason;
}

bool FFmpegNotRunnableError::operator==(const FFmpegNotRunnableError &other) const
{
    return executable == other.executable && reason == other.reason;
}

QCoro::Task<FFmpegInstallation> FFmpegInstallation::detect(ToolLocation tools, ProcessRunner processRunner,
                                                           std::stop_token stop)
{
    FFmpegInstallation found;
    found.ffmpegURL = tools.toolURL(u"ffmpeg"_s);
    found.ffprobeURL = tools.toolURL(u"ffprobe"_s);
    const QByteArray output = co_await probe(processRunner, found.ffmpegURL, stop);
    co_await probe(processRunner, found.ffprobeURL, stop);
    found.versionSummary = ffmpegVersionSummary(output);
    co_return found;
}

QString FFmpegInstallation::displayLine() const
{
    const QString folder = folderOf(ffmpegURL);
    return versionSummary ? QString(*versionSummary + u" — " + folder) : folder;
}

} // namespace tonearm
