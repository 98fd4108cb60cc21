// SPDX-License-Identifier: GPL-3.0-or-later
// Disc images, mounted by the real program and compared with what they were made from.
#include "disc/DiscTOC.h"
#include "helpers/CddafsProgram.h"
#include "helpers/Contents.h"
#include "helpers/DiscImage.h"
#include "helpers/Media.h"
#include "helpers/Mounting.h"
#include "helpers/Printing.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>

#include <discid/discid.h>

#include <array>

namespace tonearm {

using namespace Qt::StringLiterals;
using test::DiscImage;
using test::ImageRecipe;
using test::ImageTrack;

namespace {

constexpr qint64 headerBytes = 2352;
constexpr int leadIn = 150;

// An image and its volume.
class MountedImage
{
public:
    explicit MountedImage(const ImageRecipe &recipe)
        : m_image(m_images.path(), recipe)
        , m_program({u"--in"_s, m_volumes.path(), m_image.path()})
        , m_volume(m_program.waitForMount())
    {
        EXPECT_TRUE(test::mountedOn(m_volume)) << m_program.errors().toStdString();
    }

    const DiscImage &image() const { return m_image; }

    QString path(const QString &name) const { return m_volume + u'/' + name; }

    QString volumeName() const { return m_volume.section(u'/', -1); }

    /// Without the table of contents.
    QStringList trackFiles() const
    {
        QStringList names = test::namesIn(m_volume);
        EXPECT_TRUE(names.removeOne(u".TOC.plist"_s));
        return names;
    }

    DiscTOC toc() const { return DiscTOC::parse(test::readFile(path(u".TOC.plist"_s))); }

    /// Whether a file holds a track's samples and nothing else.
    bool holds(const QString &name, int number) const
    {
        return test::readFile(path(name)).sliced(headerBytes) == test::swappedSamples(m_image.sound(number));
    }

private:
    QTemporaryDir m_images;
    QTemporaryDir m_volumes;
    DiscImage m_image;
    test::CddafsProgram m_program;
    QString m_volume;
};

// libdiscid's ID of an image's tracks up to `lastTrack`, from where the image has them.
QString witness(const DiscImage &image, int lastTrack, int leadout)
{
    std::array<int, 100> offsets = {leadout + leadIn};
    for (int number = image.firstNumber(); number <= lastTrack; ++number)
        offsets[static_cast<size_t>(number)] = image.start(number) + leadIn;
    DiscId *disc = discid_new();
    EXPECT_EQ(discid_put(disc, image.firstNumber(), lastTrack, offsets.data()), 1);
    const QString id = QString::fromLatin1(discid_get_id(disc));
    discid_free(disc);
    return id;
}

QString witness(const DiscImage &image)
{
    return witness(image, image.lastNumber(), image.leadout());
}

QByteArray rippedByParanoia(const DiscImage &image, int number)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"track.raw"_s);
    test::outputOf(u"cd-paranoia"_s,
                   {u"-q"_s, u"-d"_s, image.path(), u"-r"_s, QString::number(number), path});
    return test::readFile(path);
}

} // namespace

class ImageTest : public testing::Test
{
protected:
    void SetUp() override { SKIP_WITHOUT_MOUNTS(); }
};

TEST_F(ImageTest, OfOneTrack)
{
    const MountedImage disc({.tracks = {{}}});
    EXPECT_EQ(disc.volumeName(), u"Audio CD"_s);
    EXPECT_EQ(disc.trackFiles(), QStringList{u"1 Audio Track.aiff"_s});
    EXPECT_TRUE(disc.holds(u"1 Audio Track.aiff"_s, 1));
    EXPECT_EQ(disc.toc().discID(), witness(disc.image()));
    EXPECT_EQ(disc.toc().sessionCount, 1);
}

TEST_F(ImageTest, OfNinetyNineTracks)
{
    ImageRecipe recipe;
    recipe.tracks.clear();
    for (int number = 1; number <= 99; ++number)
        recipe.tracks.append(ImageTrack{.sectors = 4 + number % 7});
    const MountedImage disc(recipe);
    EXPECT_EQ(disc.trackFiles().size(), 99);
    for (int number = 1; number <= 99; ++number)
        ASSERT_TRUE(disc.holds(QString::number(number) + u" Audio Track.aiff"_s, number)) << number;
    EXPECT_EQ(disc.toc().discID(), witness(disc.image()));
}

TEST_F(ImageTest, IsReadByFfmpegAndCdParanoiaWithTheSameSamples)
{
    const MountedImage disc({.tracks = {{.sectors = 40}, {.sectors = 90}, {.sectors = 50}}});
    for (int number = 1; number <= 3; ++number) {
        const QString file = disc.path(QString::number(number) + u" Audio Track.aiff");
        const QByteArray decoded = test::outputOf(
            u"ffmpeg"_s, {u"-v"_s, u"error"_s, u"-i"_s, file, u"-f"_s, u"s16le"_s, u"pipe:1"_s});
        EXPECT_TRUE(decoded == disc.image().sound(number)) << "ffmpeg, track " << number;
        EXPECT_TRUE(rippedByParanoia(disc.image(), number) == decoded) << "cd-paranoia, track " << number;
    }
}

TEST_F(ImageTest, TellsItsLengthToFfprobe)
{
    const MountedImage disc({.tracks = {{.sectors = 75}, {.sectors = 150}}});
    EXPECT_EQ(test::outputOf(u"ffprobe"_s,
                             {u"-v"_s, u"warning"_s, u"-show_entries"_s, u"stream=codec_name,duration_ts"_s,
                              u"-of"_s, u"csv=p=0"_s, disc.path(u"2 Audio Track.aiff"_s)}),
              "pcm_s16be,88200\n");
}

TEST_F(ImageTest, WithTitlesInItsSheet)
{
    const MountedImage disc({.tracks = {{.title = "Caf\xC3\xA9"}, {.title = "AC/DC"}, {}},
                             .title = "\xE6\x97\xA5\xE6\x9C\xAC / Live"});
    EXPECT_EQ(disc.volumeName(), u"日本 - Live"_s);
    EXPECT_EQ(disc.trackFiles(), (QStringList{u"1 Café.aiff"_s, u"2 AC-DC.aiff"_s, u"3 Audio Track.aiff"_s}));
    EXPECT_TRUE(disc.holds(u"1 Café.aiff"_s, 1));
}

TEST_F(ImageTest, WithTitlesInLatin1InItsSheet)
{
    const MountedImage disc({.tracks = {{.title = "Caf\xE9"}}, .title = "\xC4rger"});
    EXPECT_EQ(disc.volumeName(), u"Ärger"_s);
    EXPECT_EQ(disc.trackFiles(), QStringList{u"1 Café.aiff"_s});
}

TEST_F(ImageTest, WithCdTextInLatin1)
{
    const MountedImage disc({.tracks = {{.title = "Caf\xE9 for a title of several packs"}, {.title = "Two"}},
                             .title = "\xC4rger",
                             .textFile = test::CdTextCharset::latin1});
    EXPECT_EQ(disc.volumeName(), u"Ärger"_s);
    EXPECT_EQ(disc.trackFiles(),
              (QStringList{u"1 Café for a title of several packs.aiff"_s, u"2 Two.aiff"_s}));
}

TEST_F(ImageTest, WithCdTextThatSaysLatin1ButIsUtf8)
{
    const MountedImage disc({.tracks = {{.title = "\xE6\x97\xA5\xE6\x9C\xAC"}},
                             .title = "Caf\xC3\xA9",
                             .textFile = test::CdTextCharset::latin1});
    EXPECT_EQ(disc.volumeName(), u"Café"_s);
    EXPECT_EQ(disc.trackFiles(), QStringList{u"1 日本.aiff"_s});
}

TEST_F(ImageTest, WithCdTextInShiftJis)
{
    const MountedImage disc({.tracks = {{.title = "\x93\xFA\x96\x7B"}, {.title = "\x93\xFA"}},
                             .title = "\x96\x7B",
                             .textFile = test::CdTextCharset::shiftJis});
    EXPECT_EQ(disc.volumeName(), u"本"_s);
    EXPECT_EQ(disc.trackFiles(), (QStringList{u"1 日本.aiff"_s, u"2 日.aiff"_s}));
}

TEST_F(ImageTest, WithCdTextThatIsNoTextInItsCharset)
{
    const MountedImage disc({.tracks = {{.title = "\xFF\xFF\xFF"}, {.title = "\x93\xFA"}},
                             .title = "\xFF\xFE",
                             .textFile = test::CdTextCharset::shiftJis});
    ASSERT_EQ(disc.trackFiles().size(), 2);
    EXPECT_TRUE(disc.holds(disc.trackFiles().constFirst(), 1));
}

TEST_F(ImageTest, WithCdTextThatRepeatsATitle)
{
    const MountedImage disc({.tracks = {{.title = "Same"}, {.title = "\t"}, {.title = "\t"}},
                             .title = "Album",
                             .textFile = test::CdTextCharset::ascii});
    EXPECT_EQ(disc.trackFiles(), (QStringList{u"1 Same.aiff"_s, u"2 Same.aiff"_s, u"3 Same.aiff"_s}));
}

TEST_F(ImageTest, WithATrackHiddenInFrontOfTheFirst)
{
    const MountedImage disc({.tracks = {{.pregap = 32}, {}}});
    EXPECT_EQ(disc.image().start(1), 32);
    EXPECT_EQ(disc.toc().trackStarts.at(1), 182);
    EXPECT_EQ(disc.toc().discID(), witness(disc.image()));
    EXPECT_EQ(disc.trackFiles().size(), 2);
    EXPECT_TRUE(disc.holds(u"1 Audio Track.aiff"_s, 1));
}

TEST_F(ImageTest, WithPregapsThatBelongToTheTrackBefore)
{
    const MountedImage disc({.tracks = {{}, {.pregap = 10}, {.pregap = 5}}});
    EXPECT_EQ(disc.toc().discID(), witness(disc.image()));
    EXPECT_TRUE(disc.holds(u"3 Audio Track.aiff"_s, 3));
    const QByteArray first = test::readFile(disc.path(u"1 Audio Track.aiff"_s));
    EXPECT_EQ(first.size(), headerBytes + 30 * 2352);
    EXPECT_TRUE(first.sliced(headerBytes, 20 * 2352) == test::swappedSamples(disc.image().sound(1)));
}

TEST_F(ImageTest, WithADataTrackFirst)
{
    const MountedImage disc({.tracks = {{.isAudio = false, .sectors = 200}, {}, {}}});
    EXPECT_EQ(disc.trackFiles(), (QStringList{u"2 Audio Track.aiff"_s, u"3 Audio Track.aiff"_s}));
    EXPECT_TRUE(disc.holds(u"2 Audio Track.aiff"_s, 2));
    EXPECT_EQ(disc.toc().discID(), witness(disc.image()));
    EXPECT_EQ(disc.toc().sessionCount, 1);
}

TEST_F(ImageTest, WithADataTrackThatLeavesAGapAmongTheAudio)
{
    const MountedImage disc({.tracks = {{}, {.isAudio = false}, {}, {}}});
    EXPECT_EQ(disc.trackFiles(),
              (QStringList{u"1 Audio Track.aiff"_s, u"3 Audio Track.aiff"_s, u"4 Audio Track.aiff"_s}));
    EXPECT_TRUE(disc.holds(u"1 Audio Track.aiff"_s, 1));
    EXPECT_TRUE(disc.holds(u"4 Audio Track.aiff"_s, 4));
    EXPECT_EQ(disc.toc().discID(), witness(disc.image()));
}

TEST_F(ImageTest, WithADataTrackLastInTheSameSession)
{
    const MountedImage disc({.tracks = {{}, {}, {.isAudio = false, .sectors = 200}}});
    EXPECT_EQ(disc.trackFiles(), (QStringList{u"1 Audio Track.aiff"_s, u"2 Audio Track.aiff"_s}));
    EXPECT_TRUE(disc.holds(u"2 Audio Track.aiff"_s, 2));
    EXPECT_EQ(disc.toc().discID(), witness(disc.image()));
    EXPECT_EQ(disc.toc().sessionCount, 1);
}

TEST_F(ImageTest, WithADataTrackInASessionOfItsOwn)
{
    const MountedImage disc(
        {.tracks = {{}, {.sectors = 60}, {.isAudio = false, .sectors = 200, .silence = 11400}}});
    const int leadout = disc.image().start(2) + 60;
    EXPECT_EQ(disc.trackFiles(), (QStringList{u"1 Audio Track.aiff"_s, u"2 Audio Track.aiff"_s}));
    EXPECT_TRUE(disc.holds(u"2 Audio Track.aiff"_s, 2));
    const DiscTOC toc = disc.toc();
    EXPECT_EQ(toc.sessionCount, 2);
    EXPECT_EQ(toc.lastTrack, 2);
    EXPECT_EQ(toc.leadoutFrame, leadout + leadIn);
    EXPECT_EQ(toc.discID(), witness(disc.image(), 2, leadout));
}

TEST_F(ImageTest, WhoseNumbersDoNotBeginAtOne)
{
    const MountedImage disc({.tracks = {{.title = "Five"}, {.title = "Six"}}, .firstNumber = 5});
    EXPECT_EQ(disc.trackFiles(), (QStringList{u"5 Five.aiff"_s, u"6 Six.aiff"_s}));
    EXPECT_TRUE(disc.holds(u"6 Six.aiff"_s, 6));
    EXPECT_EQ(disc.toc().firstTrack, 5);
    EXPECT_EQ(disc.toc().discID(), witness(disc.image()));
}

} // namespace tonearm
