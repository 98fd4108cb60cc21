// SPDX-License-Identifier: GPL-3.0-or-later
// Reading the tags of real files, made by ffmpeg, mutagen, lame and metaflac.
#include "helpers/Await.h"
#include "helpers/Contents.h"
#include "helpers/Mutagen.h"
#include "helpers/Printing.h"
#include "helpers/SongFolder.h"
#include "helpers/StandInTools.h"
#include "support/Cancellation.h"
#include "tageditor/FilePath.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QFile>

#include <filesystem>
#include <system_error>

namespace tonearm {

using namespace Qt::StringLiterals;
using test::SongFolder;

namespace {

AudioFileTags allFields()
{
    AudioFileTags tags;
    tags.trackPosition = u"3"_s;
    tags.artist = u"Ängström & Söhne"_s;
    tags.album = u"歌集"_s;
    tags.title = u"Песня № 1"_s;
    tags.year = u"2003"_s;
    tags.genre = u"Folk"_s;
    tags.discNumber = u"1"_s;
    tags.trackTotal = u"12"_s;
    tags.discTotal = u"2"_s;
    return tags;
}

// One song in each of the three kinds.
class ReadTags : public testing::Test
{
protected:
    SongFolder m_folder;
};

class ReadTagsOf : public ReadTags, public testing::WithParamInterface<const char *>
{
protected:
    static QString name() { return u"song."_s + QString::fromLatin1(GetParam()); }
};

// An ID3v2.2 frame: a name of three letters, a length of three bytes, the text behind its encoding (Latin-1).
QByteArray oldFrame(const QByteArray &name, const QByteArray &text)
{
    const QByteArray body = QByteArray(1, '\0') + text;
    return name + QByteArray(2, '\0') + char(body.size()) + body;
}

QByteArray oldTag(const QByteArray &frames)
{
    constexpr int bitsOfSizeByte = 7;
    const auto size = frames.size();
    return QByteArray("ID3\x02\0\0\0\0", 8) + char(size >> bitsOfSizeByte) + char(size & 0x7F) + frames;
}

} // namespace

TEST_P(ReadTagsOf, FindsEveryFieldThatFfmpegWrote)
{
    m_folder.makeSong(name(),
                      {u"track=3/12"_s, u"artist=Ängström & Söhne"_s, u"album=歌集"_s, u"title=Песня № 1"_s,
                       u"date=2003-05-17"_s, u"genre=Folk"_s, u"disc=1/2"_s, u"album_artist=Various"_s});
    EXPECT_EQ(m_folder.tags(name()), allFields());
}

TEST_P(ReadTagsOf, FindsEveryFieldThatMutagenWrote)
{
    m_folder.makeSong(name(), {});
    test::python(R"(
import mutagen
file = mutagen.File(a[1], easy=True)
if file.tags is None: file.add_tags()
file.update({'tracknumber': '3/12', 'artist': 'Ängström & Söhne', 'album': '歌集', 'title': 'Песня № 1',
             'date': '2003-05-17', 'genre': 'Folk', 'discnumber': '1/2'})
file.save()
)",
                 {m_folder.path(name())});
    EXPECT_EQ(m_folder.tags(name()), allFields());
}

TEST_P(ReadTagsOf, FindsNothingInAFileWithoutTags)
{
    m_folder.makeSong(name(), {});
    EXPECT_EQ(m_folder.tags(name()), AudioFileTags());
}

TEST_P(ReadTagsOf, FindsTheSizeOfTheCover)
{
    m_folder.makeSongWithCover(name(), m_folder.makePicture(u"cover.png"_s, 70, 50));
    const AudioFileTags tags = m_folder.tags(name());
    EXPECT_TRUE(tags.hasAttachedPicture);
    EXPECT_EQ(tags.artworkPixelWidth, 70);
    EXPECT_EQ(tags.artworkPixelHeight, 50);
}

TEST_P(ReadTagsOf, FailsForAnEmptyFile)
{
    test::writeFile(m_folder.path(name()), {});
    EXPECT_TRUE(test::awaitError<std::exception>(m_folder.service().readTags(m_folder.url(name()), {})));
}

TEST_P(ReadTagsOf, FailsForATextUnderTheNameOfASong)
{
    test::writeFile(m_folder.path(name()), QByteArray("This is a text and no song.\n").repeated(100));
    EXPECT_TRUE(test::awaitError<std::exception>(m_folder.service().readTags(m_folder.url(name()), {})));
}

TEST_P(ReadTagsOf, GoesThroughALink)
{
    m_folder.makeSong(u"real-"_s + name());
    ASSERT_TRUE(QFile::link(m_folder.path(u"real-"_s + name()), m_folder.path(name())));
    EXPECT_EQ(m_folder.tags(name()).title, u"Song"_s);
}

INSTANTIATE_TEST_SUITE_P(Kinds, ReadTagsOf, testing::Values("flac", "mp3", "m4a"),
                         [](const auto &test) { return std::string(test.param); });

TEST_F(ReadTags, GivesEveryTagWithItsKeyInLowerCase)
{
    m_folder.makeSong(u"a.flac"_s, {u"TITLE=Song"_s, u"MUSICBRAINZ_TRACKID=3f7a"_s, u"Mixed Case=x"_s});
    TagTable table = test::await(m_folder.service().readAllTags(m_folder.url(u"a.flac"_s), {}));
    EXPECT_TRUE(table.remove(u"encoder"_s));
    EXPECT_EQ(table, (TagTable{{u"title"_s, u"Song"_s},
                               {u"musicbrainz_trackid"_s, u"3f7a"_s},
                               {u"mixed case"_s, u"x"_s}}));
}

TEST_F(ReadTags, ReadsVorbisCommentsInOddCasesAndRepeated)
{
    m_folder.makeSong(u"a.flac"_s, {});
    test::outputOf(u"metaflac"_s,
                   {u"--no-utf8-convert"_s, u"--set-tag=tItLe=Song"_s, u"--set-tag=Artist=Anna"_s,
                    u"--set-tag=ARTIST=Bea"_s, u"--set-tag=TrackNumber=1/2"_s, u"--set-tag=YEAR=1987"_s,
                    m_folder.path(u"a.flac"_s)});
    const AudioFileTags tags = m_folder.tags(u"a.flac"_s);
    EXPECT_EQ(tags.title, u"Song"_s);
    EXPECT_EQ(tags.artist, u"Anna;Bea"_s);
    EXPECT_EQ(tags.trackPosition, u"1"_s);
    EXPECT_EQ(tags.trackTotal, u"2"_s);
    EXPECT_EQ(tags.year, u"1987"_s);
}

TEST_F(ReadTags, ReadsCommentsWithoutAValueOrAName)
{
    m_folder.makeSong(u"a.flac"_s, {});
    test::outputOf(u"metaflac"_s, {u"--no-utf8-convert"_s, u"--set-tag=ARTIST="_s, u"--set-tag==nameless"_s,
                                   u"--set-tag=TITLE=Song"_s, m_folder.path(u"a.flac"_s)});
    const AudioFileTags tags = m_folder.tags(u"a.flac"_s);
    EXPECT_EQ(tags.title, u"Song"_s);
    EXPECT_EQ(tags.artist, u""_s);
}

TEST_F(ReadTags, ReadsAFlacFileBehindAnId3Tag)
{
    m_folder.makeSong(u"a.flac"_s, {u"title=Song"_s, u"artist=Anna"_s});
    test::python(R"(
from mutagen.id3 import ID3, TALB
tag = ID3()
tag.add(TALB(encoding=3, text='From ID3'))
tag.save(a[2])
song = open(a[1], 'rb').read()
open(a[1], 'wb').write(open(a[2], 'rb').read() + song)
)",
                 {m_folder.path(u"a.flac"_s), m_folder.path(u"id3"_s)});
    const AudioFileTags tags = m_folder.tags(u"a.flac"_s);
    EXPECT_EQ(tags.title, u"Song"_s);
    EXPECT_EQ(tags.artist, u"Anna"_s);
}

TEST_F(ReadTags, ReadsId3v1Alone)
{
    test::makeMedia(m_folder.path(u"a.wav"_s), {.duration = 1});
    test::outputOf(u"lame"_s, {u"--quiet"_s, u"--id3v1-only"_s, u"--tt"_s, u"Song"_s, u"--ta"_s, u"Anna"_s,
                               u"--tl"_s, u"Songs"_s, u"--ty"_s, u"1987"_s, u"--tn"_s, u"3"_s, u"--tg"_s,
                               u"80"_s, m_folder.path(u"a.wav"_s), m_folder.path(u"a.mp3"_s)});
    AudioFileTags expected;
    expected.trackPosition = u"3"_s;
    expected.artist = u"Anna"_s;
    expected.album = u"Songs"_s;
    expected.title = u"Song"_s;
    expected.year = u"1987"_s;
    expected.genre = u"Folk"_s;
    EXPECT_EQ(m_folder.tags(u"a.mp3"_s), expected);
}

TEST_F(ReadTags, ReadsId3v2AsLameWritesIt)
{
    test::makeMedia(m_folder.path(u"a.wav"_s), {.duration = 1});
    test::outputOf(u"lame"_s,
                   {u"--quiet"_s, u"--id3v2-only"_s, u"--tt"_s, u"Sång"_s, u"--ta"_s, u"Anna"_s, u"--ty"_s,
                    u"1987"_s, u"--tn"_s, u"3/9"_s, m_folder.path(u"a.wav"_s), m_folder.path(u"a.mp3"_s)});
    const AudioFileTags tags = m_folder.tags(u"a.mp3"_s);
    EXPECT_EQ(tags.artist, u"Anna"_s);
    EXPECT_EQ(tags.year, u"1987"_s);
    EXPECT_EQ(tags.trackPosition, u"3"_s);
    EXPECT_EQ(tags.trackTotal, u"9"_s);
}

TEST_F(ReadTags, ReadsId3v22)
{
    m_folder.makeSong(u"a.mp3"_s, {});
    test::python("import mutagen.id3; mutagen.id3.delete(a[1])", {m_folder.path(u"a.mp3"_s)});
    const QByteArray frames = oldFrame("TT2", "Song") + oldFrame("TP1", "Anna") + oldFrame("TRK", "03/12") +
                              oldFrame("TYE", "1987");
    test::writeFile(m_folder.path(u"a.mp3"_s), oldTag(frames) + test::readFile(m_folder.path(u"a.mp3"_s)));
    AudioFileTags expected;
    expected.trackPosition = u"3"_s;
    expected.artist = u"Anna"_s;
    expected.title = u"Song"_s;
    expected.year = u"1987"_s;
    expected.trackTotal = u"12"_s;
    EXPECT_EQ(m_folder.tags(u"a.mp3"_s), expected);
}

TEST_F(ReadTags, ReadsId3v24InUtf16WithSeveralValues)
{
    m_folder.makeSong(u"a.mp3"_s, {});
    test::python(R"(
from mutagen.id3 import ID3, TIT2, TPE1, TDRC, TRCK
tag = ID3()
tag.add(TIT2(encoding=1, text='Größe 歌'))
tag.add(TPE1(encoding=3, text=['Anna', 'Bea']))
tag.add(TDRC(encoding=3, text='1987-06-05'))
tag.add(TRCK(encoding=0, text='/12'))
tag.save(a[1], v2_version=4)
)",
                 {m_folder.path(u"a.mp3"_s)});
    const AudioFileTags tags = m_folder.tags(u"a.mp3"_s);
    EXPECT_EQ(tags.title, u"Größe 歌"_s);
    EXPECT_TRUE(tags.artist.startsWith(u"Anna"_s)) << tags.artist.toStdString();
    EXPECT_EQ(tags.year, u"1987"_s);
    EXPECT_EQ(tags.trackPosition, u"12"_s);
    EXPECT_EQ(tags.trackTotal, u""_s);
}

// ffmpeg looks at no APE tag there.
TEST_F(ReadTags, KeepsToId3BesideAnApeTag)
{
    m_folder.makeSong(u"a.mp3"_s);
    const QByteArray addApeTag = R"(
from mutagen.apev2 import APEv2
tag = APEv2()
tag['Title'] = 'From APE'
tag['Artist'] = 'Anna'
tag.save(a[1])
)";
    test::python(addApeTag, {m_folder.path(u"a.mp3"_s)});
    AudioFileTags expected;
    expected.title = u"Song"_s;
    EXPECT_EQ(m_folder.tags(u"a.mp3"_s), expected);

    test::python("import mutagen.id3; mutagen.id3.delete(a[1])", {m_folder.path(u"a.mp3"_s)});
    EXPECT_EQ(m_folder.tags(u"a.mp3"_s), AudioFileTags());
}

TEST_F(ReadTags, SaysThatAFileHoldsNoSound)
{
    test::writeFile(m_folder.path(u"a.flac"_s), {});
    EXPECT_EQ(test::awaitError<AudioFileTagError>(m_folder.service().readTags(m_folder.url(u"a.flac"_s), {})),
              AudioFileTagError::malformedOutput(u"There is no sound in the file."_s));
}

TEST_F(ReadTags, ReadsThirtyFreeformAtomsOfAnM4a)
{
    m_folder.makeSong(u"a.m4a"_s);
    test::python(R"(
from mutagen.mp4 import MP4
file = MP4(a[1])
for number in range(30):
    file['----:org.example.tagger:Identifier %d' % number] = b'value %d' % number
file.save()
)",
                 {m_folder.path(u"a.m4a"_s)});
    const TagTable table = test::await(m_folder.service().readAllTags(m_folder.url(u"a.m4a"_s), {}));
    EXPECT_EQ(table.value(u"identifier 0"_s), u"value 0"_s);
    EXPECT_EQ(table.value(u"identifier 29"_s), u"value 29"_s);
    EXPECT_EQ(table.value(u"title"_s), u"Song"_s);
}

TEST_F(ReadTags, TakesTheFirstOfSeveralPictures)
{
    m_folder.makeSong(u"a.flac"_s);
    const QString back = m_folder.makePicture(u"back.png"_s, 30, 20);
    const QString front = m_folder.makePicture(u"front.jpg"_s, 50, 40);
    test::outputOf(u"metaflac"_s, {u"--import-picture-from=4||||"_s + back,
                                   u"--import-picture-from=3||||"_s + front, m_folder.path(u"a.flac"_s)});
    const AudioFileTags tags = m_folder.tags(u"a.flac"_s);
    EXPECT_EQ(tags.artworkPixelWidth, 30);
    EXPECT_EQ(tags.artworkPixelHeight, 20);
}

TEST_F(ReadTags, DoesntTakeAVideoForACover)
{
    test::outputOf(u"ffmpeg"_s,
                   {u"-v"_s, u"error"_s, u"-f"_s, u"lavfi"_s, u"-i"_s, u"testsrc2=s=64x48:r=5:d=1"_s, u"-f"_s,
                    u"lavfi"_s, u"-i"_s, u"sine=d=1"_s, u"-c:v"_s, u"mpeg4"_s, u"-c:a"_s, u"aac"_s, u"-f"_s,
                    u"mp4"_s, m_folder.path(u"a.m4a"_s)});
    EXPECT_FALSE(m_folder.tags(u"a.m4a"_s).hasAttachedPicture);
}

TEST_F(ReadTags, ReadsFilesOfOddNames)
{
    const QString song = m_folder.makeSong(u"song.flac"_s);
    for (const QString &name :
         {u"-i.flac"_s, u"%03d.flac"_s, u"100%.flac"_s, u"a\nb.flac"_s, u"file:x.flac"_s,
          u"日本語 #1?.flac"_s, u"\u202Ertl.flac"_s, u"\uFFFD.flac"_s}) {
        ASSERT_TRUE(QFile::copy(song, m_folder.path(name)));
        EXPECT_EQ(m_folder.tags(name).title, u"Song"_s) << name.toStdString();
    }
}

TEST_F(ReadTags, FailsForANameThatIsntUtf8)
{
    const std::filesystem::path odd = m_folder.path(u"x"_s).toStdString() + "\xFF.flac";
    std::filesystem::copy_file(m_folder.makeSong(u"song.flac"_s).toStdString(), odd);
    // What the odd name looks like as a text is another file's real name.
    ASSERT_TRUE(QFile::rename(m_folder.path(u"song.flac"_s), m_folder.path(u"x\uFFFD.flac"_s)));
    const QList<QUrl> files = m_folder.service().audioFiles(m_folder.url()).files;
    ASSERT_THAT(files, testing::UnorderedElementsAre(m_folder.url(u"x\uFFFD.flac"_s), fileURL(odd)));
    const auto error = test::awaitError<std::system_error>(m_folder.service().readTags(fileURL(odd), {}));
    ASSERT_TRUE(error);
    EXPECT_EQ(error->code(), std::errc::illegal_byte_sequence);
    EXPECT_EQ(m_folder.tags(u"x\uFFFD.flac"_s).title, u"Song"_s);
    // The folder's owner can't name it either.
    EXPECT_TRUE(std::filesystem::remove(odd));
}

TEST_F(ReadTags, FailsForAFileThatIsntThere)
{
    EXPECT_TRUE(
        test::awaitError<ProcessRunnerError>(m_folder.service().readTags(m_folder.url(u"gone.flac"_s), {})));
}

TEST_F(ReadTags, SeesACancellation)
{
    m_folder.makeSong(u"a.flac"_s);
    std::stop_source source;
    source.request_stop();
    EXPECT_TRUE(test::awaitError<CancellationError>(
        m_folder.service().readTags(m_folder.url(u"a.flac"_s), source.get_token())));
}

TEST(ReadTagsCommand, AsksForFormatAndStreams)
{
    test::StandInTools tools;
    tools.add(u"ffprobe"_s, R"(printf '%s\n' "$@" > "$here/arguments"; echo '{}')");
    const SongFolder folder(tools.location());
    EXPECT_EQ(folder.tags(u"a b.flac"_s), AudioFileTags());
    EXPECT_EQ(QString::fromUtf8(test::readFile(tools.path(u"arguments"_s))),
              u"-v\nerror\n-print_format\njson\n-show_format\n-show_streams\n"_s +
                  folder.path(u"a b.flac"_s) + u'\n');
}

TEST(ReadTagsCommand, TellsWhatIsWrongWithTheReply)
{
    test::StandInTools tools;
    tools.add(u"ffprobe"_s, R"(echo '{"format": {"tags": {"title": 7}}}')");
    const SongFolder folder(tools.location());
    EXPECT_EQ(test::awaitError<AudioFileTagError>(folder.service().readTags(folder.url(u"a.flac"_s), {})),
              AudioFileTagError::malformedOutput(
                  u"Expected a text at \"format.tags.title\" but found a number."_s));
}

TEST(ReadTagsCommand, FailsWithoutTheTool)
{
    const test::StandInTools tools;
    const SongFolder folder(tools.location());
    EXPECT_EQ(test::awaitError<FFmpegNotFoundError>(folder.service().readTags(folder.url(u"a.flac"_s), {})),
              FFmpegNotFoundError(u"ffprobe"_s));
}

} // namespace tonearm
