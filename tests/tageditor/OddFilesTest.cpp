// SPDX-License-Identifier: GPL-3.0-or-later
// Saving files as collections really hold them.
#include "helpers/Await.h"
#include "helpers/Contents.h"
#include "helpers/Mutagen.h"
#include "helpers/Printing.h"
#include "helpers/SongFolder.h"
#include "tageditor/Writes.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QFile>

namespace tonearm {

using namespace Qt::StringLiterals;
using test::SongFolder;

namespace {

class OddFiles : public testing::Test
{
protected:
    QString path(const QString &name) const { return m_folder.path(name); }

    void ffmpeg(const QStringList &arguments) const
    {
        test::outputOf(u"ffmpeg"_s, QStringList{u"-v"_s, u"error"_s, u"-y"_s} + arguments);
    }

    // Saves another title and expects it in the file, the sound as it was, and nothing else in the folder.
    QMap<QString, QStringList> tagsAfterSave(const QString &name) const
    {
        const QStringList names = test::namesIn(m_folder.path());
        const QByteArray sound = test::audioPacketDigest(path(name));
        m_folder.write(m_folder.load(name), test::newTitle());
        EXPECT_EQ(test::audioPacketDigest(path(name)), sound);
        EXPECT_EQ(m_folder.tags(name).title, u"New Title"_s);
        EXPECT_EQ(test::namesIn(m_folder.path()), names);
        const QMap<QString, QStringList> tags = test::mutagenTags(path(name));
        EXPECT_EQ(tags.value(u"title"_s), QStringList{u"New Title"_s});
        return tags;
    }

    // Expects that a save fails in ffmpeg and changes nothing.
    void expectFailure(const QString &name) const
    {
        const QByteArray contents = test::readFile(path(name));
        const QStringList names = test::namesIn(m_folder.path());
        EXPECT_TRUE(test::awaitError<ProcessRunnerError>(
            m_folder.service().write(m_folder.load(name), test::newTitle(), true, {})));
        EXPECT_TRUE(test::readFile(path(name)) == contents);
        EXPECT_EQ(test::namesIn(m_folder.path()), names);
    }

    SongFolder m_folder;
};

} // namespace

TEST_F(OddFiles, SaveFilesOfOddNames)
{
    for (const QString &extension : {u".flac"_s, u".mp3"_s, u".m4a"_s}) {
        const QString song = m_folder.makeSong(u"song"_s + extension);
        for (const QString &stem :
             {u"-i"_s, u"%03d"_s, u"100%"_s, u"a\nb"_s, u"file:x"_s, u"日本語 #1?*"_s, u"العربية"_s,
              u"👩‍🎤"_s, u"\u202Ertl"_s, u"\uFFFD"_s, u"a 'b' \"c\" $d `e`"_s}) {
            ASSERT_TRUE(QFile::copy(song, path(stem + extension)));
            m_folder.write(m_folder.load(stem + extension), test::newTitle());
            EXPECT_EQ(m_folder.tags(stem + extension).title, u"New Title"_s) << stem.toStdString();
        }
    }
    constexpr int songs = 3 * 12;
    EXPECT_EQ(test::namesIn(m_folder.path()).size(), songs);
}

TEST_F(OddFiles, SaveAnMp3WithId3v1Alone)
{
    test::makeMedia(path(u"a.wav"_s), {.duration = 1});
    test::outputOf(u"lame"_s, {u"--quiet"_s, u"--id3v1-only"_s, u"--tt"_s, u"Song"_s, u"--ta"_s, u"Anna"_s,
                               u"--ty"_s, u"1987"_s, path(u"a.wav"_s), path(u"a.mp3"_s)});
    const auto tags = tagsAfterSave(u"a.mp3"_s);
    EXPECT_EQ(tags.value(u"artist"_s), QStringList{u"Anna"_s});
    EXPECT_EQ(tags.value(u"date"_s), QStringList{u"1987"_s});
}

TEST_F(OddFiles, SaveAnMp3WithAnApeTagAndJunkAtItsEnd)
{
    m_folder.makeSong(u"a.mp3"_s, {u"title=Song"_s, u"artist=Anna"_s});
    const QByteArray addApeTag = R"(
from mutagen.apev2 import APEv2
tag = APEv2()
tag['Title'] = 'From APE'
tag['Barcode'] = '1' * 500
tag.save(a[1])
)";
    test::python(addApeTag, {path(u"a.mp3"_s)});
    test::writeFile(path(u"a.mp3"_s),
                    test::readFile(path(u"a.mp3"_s)) + QByteArray(3000, '\0') + "LYRICSBEGIN");
    EXPECT_EQ(tagsAfterSave(u"a.mp3"_s).value(u"artist"_s), QStringList{u"Anna"_s});
}

TEST_F(OddFiles, SaveAnMp3WithoutABeginningOrAnEnd)
{
    const QByteArray song = test::readFile(m_folder.makeSong(u"a.mp3"_s));
    test::writeFile(path(u"late.mp3"_s), QByteArray(2000, '\0') + song.sliced(3000));
    tagsAfterSave(u"late.mp3"_s);
    test::writeFile(path(u"cut.mp3"_s), song.chopped(150));
    tagsAfterSave(u"cut.mp3"_s);
}

TEST_F(OddFiles, SaveAFlacFileBehindAnId3TagAndWithoutAnEnd)
{
    const QByteArray song = test::readFile(m_folder.makeSong(u"a.flac"_s, {u"artist=Anna"_s}));
    const QByteArray tag = QByteArray("ID3\x03\0\0\0\0\0\x0A", 10) + QByteArray(10, '\0');
    test::writeFile(path(u"a.flac"_s), tag + song.chopped(1000));
    EXPECT_EQ(tagsAfterSave(u"a.flac"_s).value(u"artist"_s), QStringList{u"Anna"_s});
}

TEST_F(OddFiles, SaveVorbisCommentsInOddCasesAndRepeated)
{
    m_folder.makeSong(u"a.flac"_s, {});
    test::outputOf(u"metaflac"_s,
                   {u"--no-utf8-convert"_s, u"--set-tag=TiTlE=Song"_s, u"--set-tag=artist=Anna"_s,
                    u"--set-tag=ARTIST=Bea"_s, u"--set-tag=MUSICBRAINZ_ALBUMID=3f7a"_s,
                    u"--set-tag=REPLAYGAIN_TRACK_GAIN=-7.5 dB"_s, u"--set-tag=TrackNumber=03/12"_s,
                    path(u"a.flac"_s)});
    const auto tags = tagsAfterSave(u"a.flac"_s);
    EXPECT_EQ(tags.value(u"musicbrainz_albumid"_s), QStringList{u"3f7a"_s});
    EXPECT_EQ(tags.value(u"replaygain_track_gain"_s), QStringList{u"-7.5 dB"_s});
    EXPECT_EQ(tags.value(u"tracknumber"_s), QStringList{u"03/12"_s});
    EXPECT_EQ(tags.value(u"artist"_s).join(u';'), u"Anna;Bea"_s);
}

TEST_F(OddFiles, SaveCommentsWithoutAValueOrAName)
{
    m_folder.makeSong(u"a.flac"_s, {});
    test::outputOf(u"metaflac"_s, {u"--no-utf8-convert"_s, u"--set-tag=ARTIST="_s, u"--set-tag==nameless"_s,
                                   u"--set-tag=ALBUM=Songs"_s, path(u"a.flac"_s)});
    EXPECT_EQ(tagsAfterSave(u"a.flac"_s).value(u"album"_s), QStringList{u"Songs"_s});
}

TEST_F(OddFiles, KeepSeveralPicturesAndThoseThatArentCovers)
{
    const QString front = m_folder.makePicture(u"front.jpg"_s, 50, 40);
    const QString back = m_folder.makePicture(u"back.png"_s, 30, 20);
    m_folder.makeSong(u"a.flac"_s);
    test::outputOf(u"metaflac"_s, {u"--import-picture-from=4||||"_s + back,
                                   u"--import-picture-from=3||||"_s + front, path(u"a.flac"_s)});
    m_folder.makeSong(u"a.mp3"_s);
    const QByteArray addPictures = R"(
from mutagen.id3 import ID3, APIC
tag = ID3(a[1])
for kind, place, mime in ((3, a[2], 'image/jpeg'), (4, a[3], 'image/png')):
    tag.add(APIC(encoding=3, mime=mime, type=kind, desc=str(kind), data=open(place, 'rb').read()))
tag.save(a[1], v2_version=3)
)";
    test::python(addPictures, {path(u"a.mp3"_s), front, back});
    for (const QString &name : {u"a.flac"_s, u"a.mp3"_s}) {
        const QStringList pictures = test::mutagenPictures(path(name));
        ASSERT_EQ(pictures.size(), 2);
        tagsAfterSave(name);
        EXPECT_EQ(test::mutagenPictures(path(name)), pictures);
    }
}

TEST_F(OddFiles, SaveYearsAndPositionsInOtherDigits)
{
    m_folder.makeSong(u"a.flac"_s, {u"date=٢٠٠٣"_s, u"track=1;2;3"_s});
    const EditableAudioFile file = m_folder.load(u"a.flac"_s);
    EXPECT_EQ(file.tags.year, u"٢٠٠٣"_s);
    EXPECT_EQ(file.tags.trackPosition, u"123"_s);
    const TagWrite write =
        m_folder.service().tagWrite(file, test::editing(file.url, {{EditableTagField::year, u"١٩٩٩"_s}}));
    m_folder.write(file, write);
    EXPECT_EQ(test::mutagenTags(path(u"a.flac"_s)).value(u"date"_s), QStringList{u"١٩٩٩"_s});
    EXPECT_EQ(test::mutagenTags(path(u"a.flac"_s)).value(u"tracknumber"_s), QStringList{u"1;2;3"_s});
}

TEST_F(OddFiles, SaveFlacInOggUnderTheNameOfFlac)
{
    m_folder.makeSong(u"b.flac"_s, {u"artist=Anna"_s});
    ffmpeg({u"-i"_s, path(u"b.flac"_s), u"-c"_s, u"copy"_s, u"-f"_s, u"ogg"_s, path(u"a.flac"_s)});
    ASSERT_TRUE(test::readFile(path(u"a.flac"_s)).startsWith("OggS"));
    m_folder.write(m_folder.load(u"a.flac"_s), test::newTitle());
    EXPECT_EQ(test::audioPacketDigest(path(u"a.flac"_s)), test::audioPacketDigest(path(u"b.flac"_s)));
    EXPECT_EQ(test::mutagenTags(path(u"a.flac"_s)).value(u"title"_s), QStringList{u"New Title"_s});
}

// Its packets lose the headers that M4A has no use for, and sound the same.
TEST_F(OddFiles, SaveBareAacUnderTheNameOfM4a)
{
    m_folder.makeSong(u"b.m4a"_s, {});
    ffmpeg({u"-i"_s, path(u"b.m4a"_s), u"-c"_s, u"copy"_s, u"-f"_s, u"adts"_s, path(u"a.m4a"_s)});
    const QByteArray sound = test::decodedAudio(path(u"a.m4a"_s));
    m_folder.write(m_folder.load(u"a.m4a"_s), test::newTitle());
    EXPECT_EQ(test::mutagenTags(path(u"a.m4a"_s)).value(u"title"_s), QStringList{u"New Title"_s});
    EXPECT_TRUE(test::decodedAudio(path(u"a.m4a"_s)) == sound);
}

TEST_F(OddFiles, SaveAnM4aWithTwoAudioStreams)
{
    ffmpeg({u"-f"_s, u"lavfi"_s, u"-i"_s, u"sine=d=2"_s, u"-f"_s, u"lavfi"_s, u"-i"_s, u"sine=f=300:d=1"_s,
            u"-map"_s, u"0"_s, u"-map"_s, u"1"_s, u"-c:a"_s, u"aac"_s, path(u"a.m4a"_s)});
    tagsAfterSave(u"a.m4a"_s);
}

TEST_F(OddFiles, SaveAnM4aThatBeginsWithinItsSound)
{
    m_folder.makeSong(u"b.m4a"_s, {});
    ffmpeg({u"-ss"_s, u"0.5"_s, u"-i"_s, path(u"b.m4a"_s), u"-c"_s, u"copy"_s, path(u"a.m4a"_s)});
    tagsAfterSave(u"a.m4a"_s);
}

TEST_F(OddFiles, SaveAnM4aInFragments)
{
    m_folder.makeSong(u"b.m4a"_s, {});
    ffmpeg({u"-i"_s, path(u"b.m4a"_s), u"-c"_s, u"copy"_s, u"-movflags"_s, u"frag_keyframe+empty_moov"_s,
            path(u"a.m4a"_s)});
    tagsAfterSave(u"a.m4a"_s);
}

// ffmpeg can't copy the track of their titles into this container.
TEST_F(OddFiles, FailForAnM4aWithChapters)
{
    test::makeMedia(path(u"a.m4a"_s), {.audioCodec = {u"-c:a"_s, u"aac"_s},
                                       .duration = 2,
                                       .chapters = {{0, 1, u"One"_s}, {1, 2, u"Two"_s}}});
    expectFailure(u"a.m4a"_s);
}

TEST_F(OddFiles, FailForSoundThatTheContainerCantHold)
{
    m_folder.makeSong(u"b.mp3"_s);
    ASSERT_TRUE(QFile::rename(path(u"b.mp3"_s), path(u"a.m4a"_s)));
    expectFailure(u"a.m4a"_s);
}

} // namespace tonearm
