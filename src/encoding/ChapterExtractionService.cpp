// SPDX-License-Identifier: GPL-3.0-or-later
#include "encoding/ChapterExtractionService.h"

#include "encoding/ProbeReply.h"
#include "support/Background.h"
#include "support/Json.h"
#include "support/PathText.h"

#include <QFileInfo>

#include <utility>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

QStringList probeArguments(const QString &path)
{
    return {u"-v"_s,
            u"error"_s,
            u"-print_format"_s,
            u"json"_s,
            u"-show_chapters"_s,
            u"-show_streams"_s,
            u"-select_streams"_s,
            u"a:0"_s,
            path};
}

SourceInspection decodedReply(const QByteArray &reply)
{
    try {
        return readProbeReply(reply);
    } catch (const JsonError &error) {
        throw ChapterExtractionError::malformedOutput(error.description());
    }
}

} // namespace

ChapterExtractionService::ChapterExtractionService(ToolLocation tools, ProcessRunner processRunner)
    : m_tools(std::move(tools))
    , m_processRunner(processRunner)
{
}

QCoro::Task<SourceInspection> ChapterExtractionService::inspect(QUrl url, std::stop_token stop) const
{
    // Copies, because the service itself may be gone after a suspension.
    const ToolLocation tools = m_tools;
    const ProcessRunner processRunner = m_processRunner;

    if (lowerCaseExtension(url) != u"mkv"_s)
        throw ChapterExtractionError::notMatroska(url);
    const QString path = url.toLocalFile();
    // What is awaited is called with named values only: of temporaries inside a co_await expression GCC 12
    // destroys some twice, closures among them.
    const auto readability = [path] { return QFileInfo(path).isReadable(); };
    const bool isReadable = co_await inBackground(readability);
    if (!isReadable)
        throw ChapterExtractionError::unreadableFile(url);

    const QUrl ffprobe = tools.toolURL(u"ffprobe"_s);
    const QStringList arguments = probeArguments(path);
    const ProcessRunner::LineCallback noCallback;
    const ProcessRunner::RunResult result = co_await processRunner.run(ffprobe, arguments, noCallback, stop);

    const auto decoding = [reply = result.stdoutBytes] { return decodedReply(reply); };
    const SourceInspection inspection = co_await inBackground(decoding);
    if (inspection.chapters.isEmpty())
        throw ChapterExtractionError::noChapters(url);
    co_return inspection;
}

} // namespace tonearm
