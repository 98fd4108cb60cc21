// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tageditor/ArtworkFingerprint.h"
#include "tageditor/AudioFileTagError.h"
#include "tageditor/AudioFolder.h"
#include "tageditor/EditableAudioFile.h"
#include "tageditor/TagTable.h"
#include "tageditor/TagTools.h"
#include "tageditor/TagWrite.h"

#include <QCoroTask>

#include <QString>
#include <QStringList>
#include <QUrl>

#include <stop_token>

namespace tonearm {

/// Reads and writes the tags of one file. Stateless; copies do the same. What suspends doesn't block the
/// caller's thread, which needs an event loop, and the service may go meanwhile. All of it can throw
/// FFmpegNotFoundError, what ProcessRunner::run throws, and std::system_error besides what is told.
class AudioFileTagService
{
public:
    /// `temporaryBase` is the system's temporary directory, or a test's own.
    AudioFileTagService(ToolLocation tools, QString temporaryBase, ProcessRunner processRunner = {});

    /// See audioFolderContents(). Blocks.
    AudioFolderContents audioFiles(const QUrl &folder) const;

    /// Throws AudioFileTagError::malformedOutput.
    QCoro::Task<AudioFileTags> readTags(QUrl url, std::stop_token stop) const;

    /// Every tag of the file as a whole. Throws AudioFileTagError::malformedOutput.
    QCoro::Task<TagTable> readAllTags(QUrl url, std::stop_token stop) const;

    /// Extracts the embedded picture into a file that stays. Throws AudioFileTagError::noAttachedPicture,
    /// and leaves no file when it fails.
    QCoro::Task<ArtworkFingerprint> fingerprint(EditableAudioFile file, std::stop_token stop) const;

    /// The plan for a file.
    TagWrite tagWrite(const EditableAudioFile &file, const TagChangeSet &changes) const;

    /// The names of the tags that a write would lose, found out on a copy of one second.
    /// Throws AudioFileTagError::malformedOutput.
    QCoro::Task<QStringList> preflight(EditableAudioFile file, TagWrite write, std::stop_token stop) const;

    /// Rewrites the file and returns the names of the tags that it lost, none unless `allowingLoss`. At
    /// every moment the file is whole, as it was or as it is meant to be.
    ///
    /// Throws AudioFileTagError: of the kinds for a file that can't be written as it is, malformedOutput for
    /// a copy that can't be read or whose sound isn't the original's, and wouldLoseTags. The file is as it
    /// was then, and no other is left.
    QCoro::Task<QStringList> write(EditableAudioFile file, TagWrite write, bool allowingLoss,
                                   std::stop_token stop) const;

private:
    TagTools m_tools;
};

} // namespace tonearm
