// SPDX-License-Identifier: GPL-3.0-or-later
#include "disc/DiscError.h"
#include "disc/ParanoiaRippingService.h"
#include "helpers/Await.h"
#include "helpers/Contents.h"
#include "helpers/DiscImage.h"
#include "helpers/Printing.h"
#include "helpers/SmoothSound.h"
#include "support/Cancellation.h"
#include "support/PathText.h"
#include "support/ResourceFolder.h"
#include "support/TaskScope.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>
#include <QTimer>

#include <chrono>

namespace tonearm {

using namespace Qt::StringLiterals;
using test::await;
using test::DiscImage;
using test::ImageRecipe;

namespace {

constexpr qsizetype headerBytes = 44;

// cd-paranoia itself, reading an image.
class ParanoiaDiscImage : public testing::Test
{
protected:
    // An image with a sound of its own, see smoothSound().
    DiscImage image(ImageRecipe recipe)
    {
        DiscImage made(m_folder.path(), std::move(recipe));
        m_sound = test::smoothSound(made.leadout() * discFrameBytes);
        test::writeFile(made.binPath(), m_sound);
        return made;
    }

    QByteArray soundOf(const DiscTrack &track, const DiscImage &made) const
    {
        return m_sound.mid(made.start(static_cast<int>(track.number)) * discFrameBytes,
                           track.frameCount * discFrameBytes);
    }

    QCoro::Task<RippedTrack> rip(const DiscImage &made, const DiscTrack &track, std::stop_token stop = {})
    {
        return m_service.rip(track, discOf(made), {}, std::move(stop));
    }

    QCoro::Task<bool> verify(const DiscImage &made, const DiscTrack &track, const QString &checksum)
    {
        return m_service.verify(track, discOf(made), checksum, {}, {});
    }

    // The track as the image's table of contents has it.
    static DiscTrack trackOf(const DiscImage &made, int number)
    {
        const int end = number == made.lastNumber() ? made.leadout() : made.start(number + 1);
        return {.number = number, .frameCount = end - made.start(number)};
    }

    QStringList files() const { return test::namesIn(m_folder.filePath(u"Tonearm/SecureRips"_s)); }

private:
    static DiscInfo discOf(const DiscImage &made)
    {
        return {.volumeURL = {},
                .volumeName = {},
                .discID = {},
                .tracks = {},
                .rawDevice = QUrl::fromLocalFile(made.path())};
    }

    QTemporaryDir m_folder;
    QByteArray m_sound;
    ParanoiaRippingService m_service{ToolLocation(resourceFolder()), m_folder.path()};
};

QByteArray soundIn(const RippedTrack &ripped)
{
    return test::readFile(ripped.url.toLocalFile()).sliced(headerBytes);
}

} // namespace

TEST_F(ParanoiaDiscImage, GivesEveryTracksSamplesBitForBit)
{
    const DiscImage made = image({.tracks = {{.sectors = 20}, {.sectors = 150}, {.sectors = 33}}});
    for (int number = 1; number <= 3; ++number) {
        const DiscTrack track = trackOf(made, number);
        EXPECT_TRUE(soundIn(await(rip(made, track))) == soundOf(track, made)) << number;
    }
}

TEST_F(ParanoiaDiscImage, GivesTheSamplesOfADiscThatBeginsLater)
{
    const DiscImage made = image({.tracks = {{}, {}}, .firstNumber = 5});
    const DiscTrack track = trackOf(made, 6);
    EXPECT_TRUE(soundIn(await(rip(made, track))) == soundOf(track, made));
}

TEST_F(ParanoiaDiscImage, GivesTheSamplesOfATrackWithThePauseInFrontOfTheNext)
{
    const DiscImage made = image({.tracks = {{}, {}, {.pregap = 15}}});
    const DiscTrack track = trackOf(made, 2);
    EXPECT_EQ(track.frameCount, 35);
    EXPECT_TRUE(soundIn(await(rip(made, track))) == soundOf(track, made));
}

// The span ends with a frame, and so takes one more than the length; behind the audio of an enhanced disc
// there are thousands before the data begins.
TEST_F(ParanoiaDiscImage, ReadsATrackInFrontOfADataSessionToItsEndAndOneFrameFurther)
{
    const DiscImage made = image({.tracks = {{}, {}, {.isAudio = false, .pregap = 200}}});
    DiscTrack track = trackOf(made, 2);
    track.frameCount = 20;
    track.precedesDataSession = true;
    const QByteArray sound = soundIn(await(rip(made, track)));
    EXPECT_EQ(sound.size(), 21 * discFrameBytes);
    EXPECT_TRUE(sound.startsWith(soundOf(track, made)));
}

TEST_F(ParanoiaDiscImage, GivesASixteenBitStereoFile)
{
    const DiscImage made = image({});
    const QByteArray header =
        test::readFile(await(rip(made, trackOf(made, 1))).url.toLocalFile()).first(headerBytes);
    EXPECT_EQ(header.first(4), "RIFF");
    EXPECT_EQ(header.mid(8, 8), "WAVEfmt ");
    EXPECT_EQ(header.mid(22, 2), QByteArray("\x02\x00", 2));         // channels
    EXPECT_EQ(header.mid(24, 4), QByteArray("\x44\xAC\x00\x00", 4)); // hertz
    EXPECT_EQ(header.mid(34, 2), QByteArray("\x10\x00", 2));         // bits
}

// An image is no drive that could be told its speed, and cd-paranoia says so.
TEST_F(ParanoiaDiscImage, IsNeverReadWithoutAComplaint)
{
    const DiscImage made = image({});
    EXPECT_EQ(await(rip(made, trackOf(made, 1))).assurance, RipVerification::unverified);
}

TEST_F(ParanoiaDiscImage, VerifiesAnUnchangedTrackAndNoOther)
{
    const DiscImage made = image({});
    const QString checksum = await(rip(made, trackOf(made, 2))).checksum;
    EXPECT_TRUE(await(verify(made, trackOf(made, 2), checksum)));
    EXPECT_FALSE(await(verify(made, trackOf(made, 3), checksum)));
    QByteArray sectors = test::readFile(made.binPath());
    char &sample = sectors.data()[(made.start(2) + 7) * discFrameBytes];
    sample = static_cast<char>(sample + 1);
    test::writeFile(made.binPath(), sectors);
    EXPECT_FALSE(await(verify(made, trackOf(made, 2), checksum)));
    EXPECT_EQ(files().size(), 1);
}

TEST_F(ParanoiaDiscImage, RefusesATrackThatIsLongerThanTheDiscHasIt)
{
    const DiscImage made = image({});
    DiscTrack track = trackOf(made, 2);
    ++track.frameCount;
    EXPECT_EQ(test::awaitError<DiscError>(rip(made, track)),
              DiscError::trackReadFailed(2, u"Only 47084 of 49436 bytes were read. 405: Option not supported "
                                            "by drive 405: Option not supported by drive"_s));
    EXPECT_EQ(files(), QStringList());
}

TEST_F(ParanoiaDiscImage, RefusesATrackThatHasNoFrameBetweenItAndTheDataBehindIt)
{
    const DiscImage made = image({.tracks = {{}, {}, {.isAudio = false}}});
    DiscTrack track = trackOf(made, 2);
    track.precedesDataSession = true;
    EXPECT_EQ(test::awaitError<DiscError>(rip(made, track)),
              DiscError::trackReadFailed(2, u"405: Option not supported by drive"_s));
    EXPECT_EQ(files(), QStringList());
}

TEST_F(ParanoiaDiscImage, TellsWhyADiscCantBeOpened)
{
    const DiscImage made = image({});
    const DiscTrack track = trackOf(made, 1);
    ASSERT_TRUE(QFile::remove(made.path()));
    const auto error = test::awaitError<DiscError>(rip(made, track));
    ASSERT_TRUE(error.has_value());
    EXPECT_EQ(error->kind, DiscError::Kind::trackReadFailed);
    EXPECT_THAT(error->text.toStdString(), testing::HasSubstr("Unable"));
}

TEST_F(ParanoiaDiscImage, EndsWellOrLeavesNothingAtWhateverMomentItIsCancelled)
{
    const DiscImage made = image({.tracks = {{.sectors = 400}}});
    QStringList ripped;
    for (int delay = 0; delay < 40; ++delay) {
        TaskHandle handle;
        QTimer::singleShot(std::chrono::milliseconds(delay), [handle] { handle.cancel(); });
        try {
            ripped << lastPathComponent(await(rip(made, trackOf(made, 1), handle.stopToken())).url);
        } catch (const CancellationError &) { // NOLINT(bugprone-empty-catch): one of the two good ends
        }
    }
    ripped.sort();
    EXPECT_EQ(files(), ripped);
}

} // namespace tonearm
