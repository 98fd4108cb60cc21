// SPDX-License-Identifier: GPL-3.0-or-later
// Runs that ffmpeg counts as success although less came than the track is long.
#include "encoding/AudioEncodingService.h"

#include "helpers/Await.h"
#include "helpers/Contents.h"
#include "helpers/Media.h"
#include "helpers/Printing.h"
#include "helpers/StandInTools.h"
#include "support/ResourceFolder.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QFileInfo>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

const QString endedEarly = u"File ended prematurely"_s;

class ShortTrack : public testing::Test
{
protected:
    TrackEncoding track(double start, double end, bool isWholeFile = false) const
    {
        return {
            .chapter = {.startSeconds = start, .endSeconds = end, .mappedTitle = u"A"_s},
            .source = QUrl::fromLocalFile(m_tools.path(u"source.mkv"_s)),
            .output = QUrl::fromLocalFile(m_tools.path(u"01-A.flac"_s)),
            .number = 1,
            .total = 1,
            .wholeFile = isWholeFile,
        };
    }

    // Four seconds of sound.
    QString makeSource() const
    {
        const QString path = m_tools.path(u"source.mkv"_s);
        test::makeMedia(path, {.duration = 4});
        return path;
    }

    void makeSourceCutInHalf() const
    {
        const QString path = makeSource();
        ASSERT_TRUE(QFile::resize(path, QFileInfo(path).size() / 2));
    }

    // A JPEG that says to hold facts of a camera, and holds none.
    QString makeOddCover() const
    {
        const QString path = m_tools.path(u"cover.jpg"_s);
        test::makePicture(path, 16, 16);
        constexpr qsizetype startOfImage = 2;
        const QByteArray facts = QByteArray::fromHex("ffe1 000c 457869660000 ffffffff");
        test::writeFile(path, test::readFile(path).insert(startOfImage, facts));
        return path;
    }

    static std::optional<AudioEncodingError> failureOf(const TrackEncoding &track)
    {
        const AudioEncodingService service{ToolLocation(resourceFolder())};
        return test::awaitError<AudioEncodingError>(service.encode(track, nullptr, {}));
    }

    // Of a track of four seconds, for which ffmpeg says these lines and exits with 0.
    std::optional<AudioEncodingError> failureFor(const QByteArray &lines)
    {
        m_tools.add(u"ffmpeg"_s,
                    R"(for last; do :; done; echo sound > "$last"; printf ')" + lines + R"(' >&2)");
        const AudioEncodingService service(m_tools.location());
        return test::awaitError<AudioEncodingError>(service.encode(track(1, 5), nullptr, {}));
    }

    bool hasOutput() const { return QFileInfo::exists(m_tools.path(u"01-A.flac"_s)); }

private:
    test::StandInTools m_tools;
};

} // namespace

TEST_F(ShortTrack, FailsWhereTheSourceIsCutOff)
{
    makeSourceCutInHalf();
    const auto error = failureOf(track(0.5, 4));
    ASSERT_TRUE(error.has_value());
    EXPECT_EQ(error->kind, AudioEncodingError::Kind::incompleteTrack);
    EXPECT_GT(error->readSeconds, 0.2);
    EXPECT_LT(error->readSeconds, 2.5);
    EXPECT_EQ(error->seconds, 3.5);
    EXPECT_EQ(error->complaint, endedEarly);
    EXPECT_FALSE(hasOutput());
}

TEST_F(ShortTrack, FailsWhereNothingOfItIsLeftInTheSource)
{
    makeSourceCutInHalf();
    EXPECT_EQ(failureOf(track(2.9, 4)), AudioEncodingError::incompleteTrack(0, 4 - 2.9, endedEarly));
    EXPECT_FALSE(hasOutput());
}

TEST_F(ShortTrack, FailsWhereAWholeFileIsCutOff)
{
    makeSourceCutInHalf();
    const auto error = failureOf(track(0, 4, true));
    ASSERT_TRUE(error.has_value());
    EXPECT_EQ(error->kind, AudioEncodingError::Kind::incompleteTrack);
    EXPECT_FALSE(hasOutput());
}

TEST_F(ShortTrack, IsWholeIfItLiesInFrontOfTheCut)
{
    makeSourceCutInHalf();
    EXPECT_EQ(failureOf(track(0, 0.5)), std::nullopt);
    EXPECT_TRUE(hasOutput());
}

TEST_F(ShortTrack, MayReachBeyondTheSound)
{
    makeSource();
    EXPECT_EQ(failureOf(track(1, 60)), std::nullopt);
    EXPECT_TRUE(hasOutput());
}

TEST_F(ShortTrack, MayReachBeyondTheSoundWithACoverOfWhichFfmpegComplains)
{
    makeSource();
    TrackEncoding withCover = track(1, 60);
    withCover.metadata.coverArtURL = QUrl::fromLocalFile(makeOddCover());
    EXPECT_EQ(failureOf(withCover), std::nullopt);
    EXPECT_TRUE(hasOutput());
}

TEST_F(ShortTrack, IsToldWithWhatWasSaid)
{
    EXPECT_EQ(failureFor("out_time_us=1500000\\nprogress=continue\\n[matroska,webm @ 0x5f] File ended "
                         "prematurely\\nout_time=00:00:02.900000\\nprogress=end\\n"),
              AudioEncodingError::incompleteTrack(2.9, 4, endedEarly));
    EXPECT_FALSE(hasOutput());
    EXPECT_EQ(failureFor("No good\\nout_time=N/A\\nprogress=end\\n"),
              AudioEncodingError::incompleteTrack(0, 4, u"No good"_s));
}

TEST_F(ShortTrack, IsASuccessWithoutAComplaint)
{
    EXPECT_EQ(failureFor("out_time=00:00:01.500000\\nspeed= 391x\\nprogress=end\\n"), std::nullopt);
    EXPECT_TRUE(hasOutput());
}

TEST_F(ShortTrack, IsNotOneThatIsComplainedOfButComesToItsEnd)
{
    EXPECT_EQ(failureFor("[ac3 @ 0x5f] frame sync error\\nout_time=00:00:03.000000\\nprogress=end\\n"),
              std::nullopt);
    EXPECT_TRUE(hasOutput());
}

} // namespace tonearm
