// SPDX-License-Identifier: GPL-3.0-or-later
// Playing the start of a disc's track.
#include "helpers/Await.h"
#include "helpers/Contents.h"
#include "helpers/Media.h"
#include "helpers/ModelFixture.h"
#include "helpers/Printing.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace tonearm {

using namespace Qt::StringLiterals;
using namespace test;

namespace {

constexpr qint64 longestFrames = 20 * discFramesPerSecond + 1;
// Of 32 bits each, as decodedAudio() gives them, in both channels.
constexpr qint64 bytesPerDecodedSecond = 44100 * 2 * 4;

// Each disc is of one track.
class DiscPreview : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(QDir().mkpath(m_fixture.path(u"disc"_s)));
        ASSERT_NO_FATAL_FAILURE(m_fixture.findTools());
    }

    // Of the track's file, the first bytes are the header.
    void load(qint64 frames)
    {
        DiscInfo disc;
        disc.volumeURL = m_fixture.url(u"disc"_s);
        disc.volumeName = u"The Disc"_s;
        disc.tracks = {{.number = 1, .frameCount = frames, .audioFileURL = m_fixture.url(u"disc/1.aiff"_s)}};
        makeMedia(file(), {.audioCodec = {u"-c:a"_s, u"pcm_s16be"_s},
                           .duration = static_cast<double>(frames) / discFramesPerSecond});
        ASSERT_LT(QFileInfo(file()).size(), (frames + 1) * discFrameBytes);
        m_fixture.discScan().discs = {disc};
        m_model.loadDisc(disc);
        ASSERT_TRUE(eventually([this] { return !m_model.isLoadingReleases.value(); }));
        m_fixture.settle();
    }

    QString file() const { return m_fixture.path(u"disc/1.aiff"_s); }

    void play()
    {
        m_model.togglePreview(m_model.chapters.value().first());
        EXPECT_EQ(m_model.preparingPreviewChapterID.value(), 0);
        ASSERT_TRUE(eventually([this] { return !m_model.preparingPreviewChapterID.value(); }));
    }

    // What is cut from the tracks, in bytes.
    QList<qint64> prefixes() const
    {
        QList<qint64> sizes;
        const QFileInfoList files = QDir(m_fixture.path(u"Tonearm/Rips"_s)).entryInfoList(QDir::Files);
        for (const QFileInfo &info : files)
            sizes.append(info.size());
        return sizes;
    }

    QByteArray played() const { return decodedAudio(m_fixture.sounds().started().last().toLocalFile()); }

    void expectUnreadable(int number)
    {
        EXPECT_FALSE(m_model.previewingChapterID.value());
        EXPECT_FALSE(m_model.previewTask.value());
        ASSERT_TRUE(m_model.alert.value());
        EXPECT_EQ(m_model.alert.value()->title, u"Couldn't Play Preview"_s);
        EXPECT_EQ(m_model.alert.value()->message,
                  u"Track %1 couldn't be read from the disc.\n\n"
                  u"Check the disc for scratches, then eject it and try again."_s.arg(number));
        EXPECT_TRUE(m_fixture.sounds().started().isEmpty());
    }

    // NOLINTBEGIN(cppcoreguidelines-non-private-member-variables-in-classes): a fixture
    mutable ModelFixture m_fixture;
    AppModel &m_model = m_fixture.model();
    // NOLINTEND(cppcoreguidelines-non-private-member-variables-in-classes)
};

} // namespace

TEST_F(DiscPreview, PlaysTwentySecondsOfALongTrack)
{
    ASSERT_NO_FATAL_FAILURE(load(25 * discFramesPerSecond));
    play();
    EXPECT_EQ(m_model.previewingChapterID.value(), 0);
    EXPECT_FALSE(m_model.alert.value());
    EXPECT_EQ(prefixes(), QList{longestFrames * discFrameBytes});
    EXPECT_EQ(played(), decodedAudio(file()).first(20 * bytesPerDecodedSecond));
}

// Of a track no longer than what is read for a preview, the file's last bytes may be missing: as many as
// its header has.
TEST_F(DiscPreview, PlaysAllOfAShortTrack)
{
    ASSERT_NO_FATAL_FAILURE(load(8 * discFramesPerSecond));
    play();
    EXPECT_EQ(m_model.previewingChapterID.value(), 0);
    EXPECT_EQ(prefixes(), QList{qint64{8 * discFramesPerSecond * discFrameBytes}});
    const QByteArray sound = played();
    EXPECT_TRUE(decodedAudio(file()).startsWith(sound));
    EXPECT_GT(sound.size(), 8 * bytesPerDecodedSecond - 2 * discFrameBytes);
}

TEST_F(DiscPreview, PlaysATrackOfTwentySeconds)
{
    ASSERT_NO_FATAL_FAILURE(load(20 * discFramesPerSecond));
    play();
    EXPECT_EQ(m_model.previewingChapterID.value(), 0);
    EXPECT_GT(played().size(), 20 * bytesPerDecodedSecond - 2 * discFrameBytes);
}

TEST_F(DiscPreview, PlaysATrackWhoseFileIsExactlyWhatIsRead)
{
    ASSERT_NO_FATAL_FAILURE(load(longestFrames));
    ASSERT_TRUE(QFile::resize(file(), longestFrames * discFrameBytes));
    play();
    EXPECT_EQ(m_model.previewingChapterID.value(), 0);
    EXPECT_EQ(prefixes(), QList{longestFrames * discFrameBytes});
    EXPECT_EQ(played().size(), 20 * bytesPerDecodedSecond);
}

TEST_F(DiscPreview, PlaysATrackOfThreeFrames)
{
    ASSERT_NO_FATAL_FAILURE(load(3));
    play();
    EXPECT_EQ(m_model.previewingChapterID.value(), 0);
    EXPECT_EQ(prefixes(), QList{3 * discFrameBytes});
}

TEST_F(DiscPreview, ReadsATrackOnceOnly)
{
    ASSERT_NO_FATAL_FAILURE(load(discFramesPerSecond));
    play();
    m_model.stopPreview();
    ASSERT_TRUE(QFile::remove(file()));
    play();
    EXPECT_EQ(m_model.previewingChapterID.value(), 0);
    EXPECT_EQ(prefixes().size(), 1);
}

TEST_F(DiscPreview, TellsWhenATrackCantBeRead)
{
    ASSERT_NO_FATAL_FAILURE(load(discFramesPerSecond));
    ASSERT_TRUE(QFile::remove(file()));
    play();
    expectUnreadable(1);
}

TEST_F(DiscPreview, TellsWhenATrackEndsTooSoon)
{
    ASSERT_NO_FATAL_FAILURE(load(4 * discFramesPerSecond));
    ASSERT_TRUE(QFile::resize(file(), discFramesPerSecond * discFrameBytes));
    play();
    EXPECT_FALSE(m_model.previewingChapterID.value());
    ASSERT_TRUE(m_model.alert.value());
    EXPECT_EQ(m_model.alert.value()->title, u"Couldn't Play Preview"_s);
    EXPECT_TRUE(prefixes().isEmpty());
}

TEST_F(DiscPreview, TellsWhenTheDiscHasNoSuchTrack)
{
    ASSERT_NO_FATAL_FAILURE(load(discFramesPerSecond));
    QList<ChapterInfo> chapters = m_model.chapters.value();
    chapters[0].id = 41;
    m_model.togglePreview(chapters[0]);
    ASSERT_TRUE(eventually([this] { return !m_model.preparingPreviewChapterID.value(); }));
    expectUnreadable(42);
}

TEST_F(DiscPreview, IsRefusedOnceTheDiscHasBeenEjected)
{
    ASSERT_NO_FATAL_FAILURE(load(discFramesPerSecond));
    play();
    m_model.ejectCurrentDisc();
    EXPECT_FALSE(m_model.previewingChapterID.value());
    EXPECT_EQ(m_fixture.sounds().openCount(), 0);
    m_fixture.settle();
    EXPECT_TRUE(eventually([this] { return prefixes().isEmpty(); }));
    m_model.togglePreview(m_model.chapters.value().first());
    EXPECT_FALSE(m_model.preparingPreviewChapterID.value());
}

TEST_F(DiscPreview, EndsWhenItsDiscIsPulledOut)
{
    ASSERT_NO_FATAL_FAILURE(load(discFramesPerSecond));
    play();
    m_fixture.discScan().discs = {};
    m_model.refreshDiscs();
    EXPECT_TRUE(eventually([this] { return !m_model.previewingChapterID.value(); }));
    EXPECT_EQ(m_fixture.sounds().openCount(), 0);
    EXPECT_TRUE(eventually([this] { return prefixes().isEmpty(); }));
    EXPECT_TRUE(eventually([this] { return namesIn(m_fixture.path(u"Tonearm/Previews"_s)).isEmpty(); }));
    EXPECT_EQ(m_model.alert.value()->title, u"Disc Ejected"_s);
}

} // namespace tonearm
