// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "helpers/Media.h"
#include "tageditor/AudioFileTagService.h"
#include "tools/ToolLocation.h"

#include <QString>
#include <QStringList>
#include <QTemporaryDir>
#include <QUrl>

#include <ostream>

namespace tonearm {

// NOLINTNEXTLINE(readability-identifier-naming): GoogleTest's name
void PrintTo(const AudioFileTags &tags, std::ostream *out);

} // namespace tonearm

namespace tonearm::test {

/// The tools that the application ships.
ToolLocation shippedTools();

/// A folder for songs and, beside it, one for the service's temporary files.
class SongFolder
{
public:
    explicit SongFolder(const ToolLocation &tools = shippedTools());

    /// A file in the folder, or the folder.
    QString path(const QString &name = {}) const;

    QUrl url(const QString &name = {}) const { return QUrl::fromLocalFile(path(name)); }

    /// Makes a song of two seconds in the format that its extension names, with these "key=value" tags;
    /// returns its path.
    QString makeSong(const QString &name, const QStringList &tags = {QStringLiteral("title=Song")}) const;

    /// The same with ffmpeg's options for the sound.
    QString makeSong(const QString &name, const QStringList &tags, const QStringList &codec) const;

    /// The same with a cover.
    QString makeSongWithCover(const QString &name, const QString &cover) const;

    /// A picture beside the songs; returns its path.
    QString makePicture(const QString &name, int width = 64, int height = 48) const;

    const AudioFileTagService &service() const { return m_service; }

    /// What readTags() says of a file.
    AudioFileTags tags(const QString &name) const;

    /// A row as the editor loads it.
    EditableAudioFile load(const QString &name) const;

    /// Writes a file's tags and returns the names of those that it lost.
    QStringList write(const EditableAudioFile &file, const TagWrite &write, bool allowingLoss = false) const;

    /// Every file in the service's temporary folder.
    QStringList temporaryFiles() const;

private:
    QTemporaryDir m_folder;
    AudioFileTagService m_service;
};

} // namespace tonearm::test
