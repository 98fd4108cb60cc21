// SPDX-License-Identifier: GPL-3.0-or-later
#include "helpers/SongFolder.h"

#include "helpers/Await.h"
#include "support/ResourceFolder.h"
#include "tageditor/FilePath.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QDirIterator>

namespace tonearm {

void PrintTo(const AudioFileTags &tags, std::ostream *out)
{
    for (const QString &text : {tags.trackPosition, tags.trackTotal, tags.artist, tags.album, tags.title,
                                tags.year, tags.genre, tags.discNumber, tags.discTotal})
        *out << '"' << text.toStdString() << "\" ";
    *out << (tags.hasAttachedPicture ? "with a picture" : "without a picture");
}

} // namespace tonearm

namespace tonearm::test {

using namespace Qt::StringLiterals;

namespace {

QStringList codecFor(const QString &name)
{
    if (name.endsWith(u".mp3"_s, Qt::CaseInsensitive))
        return {u"-c:a"_s, u"libmp3lame"_s, u"-id3v2_version"_s, u"3"_s};
    if (name.endsWith(u".m4a"_s, Qt::CaseInsensitive))
        return {u"-c:a"_s, u"aac"_s};
    return codec::flac16();
}

} // namespace

ToolLocation shippedTools()
{
    return ToolLocation(resourceFolder());
}

SongFolder::SongFolder(const ToolLocation &tools)
    : m_service(tools, m_folder.filePath(u"tmp"_s))
{
    EXPECT_TRUE(QDir(m_folder.path()).mkdir(u"songs"_s));
    EXPECT_TRUE(QDir(m_folder.path()).mkdir(u"tmp"_s));
}

QString SongFolder::path(const QString &name) const
{
    const QString folder = m_folder.filePath(u"songs"_s);
    return name.isEmpty() ? folder : QString(folder + u'/' + name);
}

QString SongFolder::makeSong(const QString &name, const QStringList &tags) const
{
    return makeSong(name, tags, codecFor(name));
}

QString SongFolder::makeSong(const QString &name, const QStringList &tags, const QStringList &codec) const
{
    makeMedia(path(name), {.audioCodec = codec, .channelLayout = u"mono"_s, .duration = 2, .metadata = tags});
    return path(name);
}

QString SongFolder::makeSongWithCover(const QString &name, const QString &cover) const
{
    const QString plain = u"plain."_s + name.section(u'.', -1);
    makeSong(plain);
    outputOf(u"ffmpeg"_s,
             {u"-v"_s, u"error"_s, u"-i"_s, path(plain), u"-i"_s, cover, u"-map"_s, u"0:a"_s, u"-map"_s,
              u"1:v"_s, u"-c"_s, u"copy"_s, u"-disposition:v:0"_s, u"attached_pic"_s, path(name)});
    EXPECT_TRUE(QFile::remove(path(plain)));
    return path(name);
}

QString SongFolder::makePicture(const QString &name, int width, int height) const
{
    test::makePicture(m_folder.filePath(name), width, height);
    return m_folder.filePath(name);
}

AudioFileTags SongFolder::tags(const QString &name) const
{
    return await(m_service.readTags(url(name), {}));
}

EditableAudioFile SongFolder::load(const QString &name) const
{
    return {.url = url(name),
            .tags = tags(name),
            .unreadableReason = {},
            .modificationDate = contentModificationDate(url(name))};
}

QStringList SongFolder::write(const EditableAudioFile &file, const TagWrite &write, bool allowingLoss) const
{
    return await(m_service.write(file, write, allowingLoss, {}));
}

QStringList SongFolder::temporaryFiles() const
{
    QStringList result;
    QDirIterator files(m_folder.filePath(u"tmp"_s), QDir::Files | QDir::Hidden | QDir::System,
                       QDirIterator::Subdirectories);
    while (files.hasNext())
        result.append(files.next());
    return result;
}

} // namespace tonearm::test
