// SPDX-License-Identifier: GPL-3.0-or-later
#include "tageditor/AudioFileTagService.h"

#include "tageditor/FilePath.h"
#include "tageditor/Fingerprint.h"
#include "tageditor/TagRewrite.h"

#include <memory>
#include <utility>

namespace tonearm {

AudioFileTagService::AudioFileTagService(ToolLocation tools, QString temporaryBase,
                                         ProcessRunner processRunner)
    : m_tools{std::move(tools), processRunner, std::make_shared<ScratchFolders>(std::move(temporaryBase))}
{
}

AudioFolderContents AudioFileTagService::audioFiles(const QUrl &folder) const
{
    return audioFolderContents(folder);
}

QCoro::Task<AudioFileTags> AudioFileTagService::readTags(QUrl url, std::stop_token stop) const
{
    const QString path = textPath(url);
    const ProbePayload payload = co_await probe(m_tools, path, stop);
    co_return audioFileTags(payload);
}

QCoro::Task<TagTable> AudioFileTagService::readAllTags(QUrl url, std::stop_token stop) const
{
    const QString path = textPath(url);
    const ProbePayload payload = co_await probe(m_tools, path, stop);
    co_return tagTable(payload);
}

QCoro::Task<ArtworkFingerprint> AudioFileTagService::fingerprint(EditableAudioFile file,
                                                                 std::stop_token stop) const
{
    return extractedFingerprint(m_tools, std::move(file), std::move(stop));
}

TagWrite AudioFileTagService::tagWrite(const EditableAudioFile &file, const TagChangeSet &changes) const
{
    return tonearm::tagWrite(file, changes);
}

QCoro::Task<QStringList> AudioFileTagService::preflight(EditableAudioFile file, TagWrite write,
                                                        std::stop_token stop) const
{
    return tagsLostByRewrite(m_tools, std::move(file), std::move(write), std::move(stop));
}

QCoro::Task<QStringList> AudioFileTagService::write(EditableAudioFile file, TagWrite write, bool allowingLoss,
                                                    std::stop_token stop) const
{
    return rewriteTags(m_tools, std::move(file), std::move(write), allowingLoss, std::move(stop));
}

} // namespace tonearm
