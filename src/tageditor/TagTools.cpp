// SPDX-License-Identifier: GPL-3.0-or-later
#include "tageditor/TagTools.h"

#include "support/Background.h"
#include "support/Json.h"
#include "tageditor/AudioFileTagError.h"

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

QStringList probeArguments(const QString &path)
{
    return {u"-v"_s, u"error"_s, u"-print_format"_s, u"json"_s, u"-show_format"_s, u"-show_streams"_s, path};
}

ProbePayload decodedReply(const QByteArray &reply)
{
    try {
        return ProbePayload::decoded(reply);
    } catch (const JsonError &error) {
        throw AudioFileTagError::malformedOutput(error.description());
    }
}

ProbePayload checkedReply(const QByteArray &reply)
{
    const ProbePayload payload = decodedReply(reply);
    if (payload.lacksSound())
        throw AudioFileTagError::malformedOutput(u"There is no sound in the file."_s);
    return payload;
}

// What is awaited takes named values only: of temporaries inside a co_await expression GCC 12 destroys some
// twice, closures among them.
QCoro::Task<QByteArray> output(TagTools tools, QString program, QStringList arguments, std::stop_token stop)
{
    const QUrl executable = tools.location.toolURL(program);
    const ProcessRunner::LineCallback noCallback;
    const ProcessRunner::RunResult result =
        co_await tools.processRunner.run(executable, arguments, noCallback, stop);
    co_return result.stdoutBytes;
}

} // namespace

QCoro::Task<ProbePayload> probe(TagTools tools, QString path, std::stop_token stop)
{
    const QString program = u"ffprobe"_s;
    const QStringList arguments = probeArguments(path);
    const QByteArray reply = co_await output(tools, program, arguments, stop);
    const auto decoding = [reply] { return checkedReply(reply); };
    co_return co_await inBackground(decoding);
}

QCoro::Task<AudioPackets> audioPackets(TagTools tools, QString path, std::stop_token stop)
{
    const QString program = u"ffprobe"_s;
    const QStringList arguments = audioPacketArguments(path);
    const QByteArray listing = co_await output(tools, program, arguments, stop);
    const auto decoding = [listing] { return AudioPackets::decoded(listing); };
    co_return co_await inBackground(decoding);
}

QCoro::Task<> runFFmpeg(TagTools tools, QStringList arguments, std::stop_token stop)
{
    const QString program = u"ffmpeg"_s;
    co_await output(tools, program, arguments, stop);
}

} // namespace tonearm
