// SPDX-License-Identifier: GPL-3.0-or-later
#include "tageditor/TagRewrite.h"

#include "support/Background.h"
#include "support/BothOf.h"
#include "support/PathText.h"
#include "tageditor/AudioFileTagError.h"
#include "tageditor/CopyCheck.h"
#include "tageditor/FilePath.h"
#include "tageditor/FileReplacement.h"
#include "tageditor/Id3Version.h"
#include "tageditor/LostTags.h"
#include "tageditor/RemovingOnFailure.h"
#include "tageditor/RewriteRun.h"
#include "tageditor/RewriteTarget.h"

#include <QUuid>

#include <utility>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

struct WriteJob
{
    RewriteTarget target;
    Rewrite rewrite;
    bool isLossAllowed;
};

QString imagePath(const TagWrite &write)
{
    return write.artwork.kind == ArtworkWrite::Kind::replace ? textPath(write.artwork.url) : QString();
}

Rewrite preflightOf(const QUrl &url, const TagWrite &write, ScratchFolders &scratch)
{
    const QString name = QUuid::createUuid().toString(QUuid::WithoutBraces);
    const QString extension = lastPathComponent(url).section(u'.', -1);
    return {.input = textPath(url),
            .output = scratch.folder(TemporaryFolders::Purpose::preflight) + u'/' + name + u'.' + extension,
            .write = write,
            .image = imagePath(write),
            .id3Version = id3Version(url),
            .isPreflight = true};
}

// Makes the copy and tells what it has lost.
QCoro::Task<QStringList> copyAndCompare(TagTools tools, QUrl url, Rewrite rewrite, ProbePayload before,
                                        std::stop_token stop)
{
    co_await runRewrite(tools, rewrite, stop);
    const ProbePayload after = co_await probeCopy(tools, url, rewrite.output, stop);
    checkAudioStreams(url, before, after);
    co_return lostTags(tagTable(before), tagTable(after), rewrite.write.metadata);
}

WriteJob writeJob(const EditableAudioFile &file, const TagWrite &write, bool allowingLoss)
{
    const RewriteTarget target = rewriteTarget(file);
    return {.target = target,
            .rewrite = {.input = target.original,
                        .output = target.temporary,
                        .write = write,
                        .image = imagePath(write),
                        .id3Version = id3Version(file.url)},
            .isLossAllowed = allowingLoss};
}

QCoro::Task<QStringList> copyAndReplace(TagTools tools, WriteJob job, ProbePayload before,
                                        std::stop_token stop)
{
    const QUrl url = job.target.url;
    const auto creation = [path = job.target.temporary] { createPrivateFile(path); };
    co_await inBackground(creation);
    const QStringList lost = co_await copyAndCompare(tools, url, job.rewrite, before, stop);
    if (!lost.isEmpty() && !job.isLossAllowed)
        throw AudioFileTagError::wouldLoseTags(url, lost);
    const auto check = [target = job.target] { checkUnchanged(target); };
    co_await inBackground(check);
    // To get the copy onto the disk takes as long as to look through its sound.
    AttributesDate carriedOver{};
    const auto carrying = [target = job.target, &carriedOver] { carriedOver = carryAttributesOver(target); };
    QCoro::Task<> listening = checkAudioPackets(tools, job.target, before, stop);
    QCoro::Task<> flushing = inBackground(carrying);
    co_await bothOf(std::move(listening), std::move(flushing));
    const auto replacement = [target = job.target, carriedOver] { replaceOriginal(target, carriedOver); };
    co_await inBackground(replacement);
    co_return lost;
}

} // namespace

QCoro::Task<QStringList> tagsLostByRewrite(TagTools tools, EditableAudioFile file, TagWrite write,
                                           std::stop_token stop)
{
    if (write.isEmpty())
        co_return {};
    const auto planning = [url = file.url, write, scratch = tools.scratch] {
        return preflightOf(url, write, *scratch);
    };
    const Rewrite rewrite = co_await inBackground(planning);
    const ProbePayload before = co_await probe(tools, rewrite.input, stop);
    QCoro::Task<QStringList> work = copyAndCompare(tools, file.url, rewrite, before, stop);
    const QStringList lost = co_await removingOnFailure(std::move(work), rewrite.output);
    co_await removeFile(rewrite.output);
    co_return lost;
}

QCoro::Task<QStringList> rewriteTags(TagTools tools, EditableAudioFile file, TagWrite write,
                                     bool allowingLoss, std::stop_token stop)
{
    const auto planning = [file, write, allowingLoss] { return writeJob(file, write, allowingLoss); };
    const WriteJob job = co_await inBackground(planning);
    const ProbePayload before = co_await probe(tools, job.rewrite.input, stop);
    QCoro::Task<QStringList> work = copyAndReplace(tools, job, before, stop);
    co_return co_await removingOnFailure(std::move(work), job.target.temporary);
}

} // namespace tonearm
