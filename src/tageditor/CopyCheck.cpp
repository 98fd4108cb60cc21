// SPDX-License-Identifier: GPL-3.0-or-later
#include "tageditor/CopyCheck.h"

#include "support/BothOf.h"
#include "support/PathText.h"
#include "tageditor/AudioFileTagError.h"

#include <utility>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

AudioFileTagError copyError(const QUrl &url, const QString &fault)
{
    return AudioFileTagError::malformedOutput(u"The rewritten copy of \""_s + lastPathComponent(url) +
                                              u"\" "_s + fault);
}

// Bare AAC has a header in front of each packet, which is dropped on the way into M4A.
bool isSameSound(const ProbePayload &probed, const AudioPackets &before, const AudioPackets &after)
{
    const bool hasHeaders = probed.format && probed.format->formatName == u"aac"_s;
    return hasHeaders ? before.counts() == after.counts() : before == after;
}

QCoro::Task<> readAudioPackets(TagTools tools, QString path, AudioPackets *packets, std::stop_token stop)
{
    const AudioPackets read = co_await audioPackets(tools, path, stop);
    *packets = read;
}

} // namespace

QCoro::Task<ProbePayload> probeCopy(TagTools tools, QUrl url, QString path, std::stop_token stop)
{
    const QString fault = u"couldn't be read, so the file was left unchanged.\n\n"_s;
    try {
        co_return co_await probe(tools, path, stop);
    } catch (const ProcessRunnerError &error) {
        throw copyError(url, fault + error.description());
    } catch (const AudioFileTagError &error) {
        throw copyError(url, fault + error.text);
    }
}

void checkAudioStreams(const QUrl &url, const ProbePayload &before, const ProbePayload &after)
{
    if (after.audioStreamCount() < before.audioStreamCount())
        throw copyError(url, u"has lost its audio, so the file was left unchanged."_s);
}

QCoro::Task<> checkAudioPackets(TagTools tools, RewriteTarget target, ProbePayload before,
                                std::stop_token stop)
{
    AudioPackets original;
    AudioPackets copy;
    QCoro::Task<> readingOriginal = readAudioPackets(tools, target.original, &original, stop);
    QCoro::Task<> readingCopy = readAudioPackets(tools, target.temporary, &copy, stop);
    co_await bothOf(std::move(readingOriginal), std::move(readingCopy));
    if (!isSameSound(before, original, copy))
        throw copyError(target.url, u"has lost some of its audio, so the file was left unchanged."_s);
}

} // namespace tonearm
