// SPDX-License-Identifier: GPL-3.0-or-later
// Real files of every kind, saved and read back by mutagen.
#include "helpers/Await.h"
#include "helpers/Contents.h"
#include "helpers/Mutagen.h"
#include "helpers/Printing.h"
#include "helpers/SongFolder.h"
#include "support/Digest.h"
#include "tageditor/FilePath.h"
#include "tageditor/Writes.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QFile>

namespace tonearm {

using namespace Qt::StringLiterals;
using test::SongFolder;
using Field = EditableTagField;

namespace {

struct Kind
{
    /// A test name.
    const char *name;
    const char *extension;
    /// ffmpeg's options to make one.
    const char *codec;
};

void PrintTo(const Kind &kind, std::ostream *out)
{
    *out << kind.name;
}

class WriteTags : public testing::TestWithParam<Kind>
{
protected:
    static QString name() { return u"song."_s + QString::fromLatin1(GetParam().extension); }

    void makeSong(const QStringList &tags) const
    {
        m_folder.makeSong(name(), tags, QString::fromLatin1(GetParam().codec).split(u' '));
    }

    // Edits the song as the editor does, and expects that its sound stays and nothing else appears.
    void save(const QMap<Field, QString> &edits, const ArtworkIntent &intent = {}) const
    {
        const EditableAudioFile file = m_folder.load(name());
        const QByteArray soundBefore = test::audioPacketDigest(m_folder.path(name()));
        const TagWrite write = m_folder.service().tagWrite(file, test::editing(file.url, edits, intent));
        EXPECT_EQ(test::await(m_folder.service().preflight(file, write, {})), QStringList());
        EXPECT_EQ(m_folder.write(file, write), QStringList());
        EXPECT_EQ(test::audioPacketDigest(m_folder.path(name())), soundBefore);
        EXPECT_EQ(test::namesIn(m_folder.path()), QStringList{name()});
        EXPECT_TRUE(m_folder.temporaryFiles().isEmpty());
    }

    QMap<QString, QStringList> savedTags() const
    {
        QMap<QString, QStringList> tags = test::mutagenTags(m_folder.path(name()));
        tags.remove(u"encoder"_s);
        tags.remove(u"encodedby"_s);
        return tags;
    }

    SongFolder m_folder;
};

QString pictureDigest(const QString &path)
{
    return sha256Hex(test::readFile(path));
}

} // namespace

TEST_P(WriteTags, WritesEveryField)
{
    makeSong({u"title=Song"_s});
    save({{Field::trackPosition, u"3"_s},
          {Field::artist, u"Anna"_s},
          {Field::album, u"Songs"_s},
          {Field::title, u"Another"_s},
          {Field::year, u"1999-03"_s},
          {Field::genre, u"Folk"_s},
          {Field::discNumber, u"2"_s}});
    EXPECT_EQ(savedTags(), (QMap<QString, QStringList>{{u"tracknumber"_s, {u"3"_s}},
                                                       {u"artist"_s, {u"Anna"_s}},
                                                       {u"albumartist"_s, {u"Anna"_s}},
                                                       {u"album"_s, {u"Songs"_s}},
                                                       {u"title"_s, {u"Another"_s}},
                                                       {u"date"_s, {u"1999"_s}},
                                                       {u"genre"_s, {u"Folk"_s}},
                                                       {u"discnumber"_s, {u"2"_s}}}));
}

TEST_P(WriteTags, LeavesTheOtherTagsAlone)
{
    makeSong({u"title=Song"_s, u"artist=Anna"_s, u"album_artist=Various"_s, u"copyright=Bea"_s,
              u"track=3/12"_s, u"date=1999"_s});
    QMap<QString, QStringList> expected = savedTags();
    save({{Field::title, u"Another"_s}});
    expected[u"title"_s] = {u"Another"_s};
    EXPECT_EQ(savedTags(), expected);
    EXPECT_TRUE(expected.contains(u"copyright"_s));
}

TEST_P(WriteTags, ClearsAnArtistWithTheAlbumArtist)
{
    makeSong({u"title=Song"_s, u"artist=Anna"_s, u"album_artist=Anna"_s});
    save({{Field::artist, u" "_s}});
    EXPECT_EQ(savedTags(), (QMap<QString, QStringList>{{u"title"_s, {u"Song"_s}}}));
}

TEST_P(WriteTags, KeepsTheTotalBesideANewPosition)
{
    makeSong({u"track=3/12"_s, u"disc=1/2"_s});
    save({{Field::trackPosition, u"5"_s}, {Field::discNumber, u"2"_s}});
    EXPECT_EQ(savedTags(),
              (QMap<QString, QStringList>{{u"tracknumber"_s, {u"5/12"_s}}, {u"discnumber"_s, {u"2/2"_s}}}));
}

TEST_P(WriteTags, WritesTextsOfEveryScriptAndShape)
{
    makeSong({});
    const QStringList texts = {u"Größe & Söhne"_s,   u"Песня № 1 — «да»"_s, u"日本語の歌"_s,
                               u"أغنية"_s,           u"👩‍🎤🎵"_s,  u"a=b;c/d\\e\"f'g"_s,
                               u"-y %d $HOME `x`"_s, QString(3000, u'歌')};
    for (const QString &text : texts) {
        save({{Field::title, text}});
        EXPECT_EQ(savedTags().value(u"title"_s), QStringList{text});
        EXPECT_EQ(m_folder.tags(name()).title, text);
    }
}

TEST_P(WriteTags, PutsInAPicture)
{
    makeSong({u"title=Song"_s});
    const QString cover = m_folder.makePicture(u"cover.jpg"_s, 70, 50);
    save({}, ArtworkIntent::replace(QUrl::fromLocalFile(cover)));
    EXPECT_EQ(test::mutagenPictures(m_folder.path(name())), QStringList{pictureDigest(cover)});
    EXPECT_EQ(savedTags(), (QMap<QString, QStringList>{{u"title"_s, {u"Song"_s}}}));
    const AudioFileTags tags = m_folder.tags(name());
    EXPECT_EQ(tags.artworkPixelWidth, 70);
    EXPECT_EQ(tags.artworkPixelHeight, 50);
}

TEST_P(WriteTags, ReplacesAPictureByAPng)
{
    makeSong({u"title=Song"_s});
    save({}, ArtworkIntent::replace(QUrl::fromLocalFile(m_folder.makePicture(u"old.jpg"_s))));
    const QString cover = m_folder.makePicture(u"new.png"_s, 30, 20);
    save({{Field::title, u"Another"_s}}, ArtworkIntent::replace(QUrl::fromLocalFile(cover)));
    EXPECT_EQ(test::mutagenPictures(m_folder.path(name())), QStringList{pictureDigest(cover)});
    EXPECT_EQ(savedTags().value(u"title"_s), QStringList{u"Another"_s});
}

TEST_P(WriteTags, KeepsThePictureWhileTagsChange)
{
    makeSong({});
    const QString cover = m_folder.makePicture(u"cover.png"_s);
    save({}, ArtworkIntent::replace(QUrl::fromLocalFile(cover)));
    save({{Field::title, u"Another"_s}});
    EXPECT_EQ(test::mutagenPictures(m_folder.path(name())), QStringList{pictureDigest(cover)});
}

TEST_P(WriteTags, TakesOutThePicture)
{
    makeSong({u"title=Song"_s});
    save({}, ArtworkIntent::replace(QUrl::fromLocalFile(m_folder.makePicture(u"cover.jpg"_s))));
    save({}, ArtworkIntent::remove());
    EXPECT_EQ(test::mutagenPictures(m_folder.path(name())), QStringList());
    EXPECT_FALSE(m_folder.tags(name()).hasAttachedPicture);
    EXPECT_EQ(savedTags(), (QMap<QString, QStringList>{{u"title"_s, {u"Song"_s}}}));
}

TEST_P(WriteTags, TakesAPictureWhoseNameLooksLikeASeries)
{
    makeSong({});
    for (const QString &picture : {u"%d.jpg"_s, u"100%.jpg"_s, u"%%[1-9]%03d.jpg"_s}) {
        const QString cover = m_folder.makePicture(u"cover.jpg"_s);
        const QString odd = QString(cover).replace(u"cover.jpg"_s, picture);
        ASSERT_TRUE(QFile::rename(cover, odd));
        save({}, ArtworkIntent::replace(QUrl::fromLocalFile(odd)));
        EXPECT_EQ(test::mutagenPictures(m_folder.path(name())), QStringList{pictureDigest(odd)});
        ASSERT_TRUE(QFile::remove(odd));
    }
}

TEST_P(WriteTags, SavesAgainAndAgainWithoutGrowing)
{
    makeSong({u"title=Song"_s});
    save({{Field::title, u"Title A"_s}});
    const QByteArray first = test::readFile(m_folder.path(name()));
    save({{Field::title, u"Title B"_s}});
    save({{Field::title, u"Title A"_s}});
    EXPECT_TRUE(test::readFile(m_folder.path(name())) == first);
}

INSTANTIATE_TEST_SUITE_P(Kinds, WriteTags,
                         testing::Values(Kind{"Flac", "flac", "-c:a flac -sample_fmt s16"},
                                         Kind{"Mp3WithId3v23", "mp3", "-c:a libmp3lame -id3v2_version 3"},
                                         Kind{"Mp3WithId3v24", "mp3", "-c:a libmp3lame -id3v2_version 4"},
                                         Kind{"Aac", "m4a", "-c:a aac"}, Kind{"Alac", "m4a", "-c:a alac"}),
                         [](const auto &test) { return std::string(test.param.name); });

namespace {

QByteArray id3VersionOf(const QString &path)
{
    return test::python("from mutagen.id3 import ID3; print(ID3(a[1], translate=False).version)", {path});
}

} // namespace

TEST(WriteId3, KeepsTheVersion)
{
    const SongFolder folder;
    for (const QString &version : {u"3"_s, u"4"_s}) {
        folder.makeSong(u"a.mp3"_s, {}, {u"-c:a"_s, u"libmp3lame"_s, u"-id3v2_version"_s, version});
        folder.write(folder.load(u"a.mp3"_s), test::newTitle());
        EXPECT_EQ(id3VersionOf(folder.path(u"a.mp3"_s)), "(2, " + version.toLatin1() + ", 0)\n");
    }
}

TEST(WriteId3, IsLeftToFfmpegForAFileWithoutATag)
{
    const SongFolder folder;
    folder.makeSong(u"a.mp3"_s);
    test::python("import mutagen.id3; mutagen.id3.delete(a[1])", {folder.path(u"a.mp3"_s)});
    folder.write(folder.load(u"a.mp3"_s), test::newTitle());
    EXPECT_EQ(id3VersionOf(folder.path(u"a.mp3"_s)), "(2, 4, 0)\n");
}

} // namespace tonearm
