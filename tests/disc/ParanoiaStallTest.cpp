// SPDX-License-Identifier: GPL-3.0-or-later
#include "disc/DiscError.h"
#include "disc/ParanoiaFixture.h"
#include "helpers/Await.h"
#include "helpers/Contents.h"
#include "helpers/Printing.h"

#include <gtest/gtest.h>

#include <chrono>

namespace tonearm {

using namespace Qt::StringLiterals;
using test::await;
using test::awaitError;

namespace {

class ParanoiaStall : public test::ParanoiaFixture
{
protected:
    ParanoiaStall()
        : ParanoiaFixture(impatient)
    {
    }

    // A program that writes so much and then hangs.
    void setHanging(qint64 bytes, const QByteArray &before = {})
    {
        setProgram(before + "\necho $$ > \"$here/pid\"; write " + QByteArray::number(bytes) +
                   "; exec sleep 100");
    }

    DiscError stalled(qint64 bytes) const
    {
        return DiscError::trackReadFailed(track.number,
                                          stallMessage(track, bytes, 44 + track.frameCount * discFrameBytes));
    }
};

} // namespace

TEST_F(ParanoiaStall, EndsAProgramWhoseFileDoesntGrow)
{
    setHanging(10000);
    EXPECT_EQ(awaitError<DiscError>(rip()), stalled(10000));
    EXPECT_FALSE(tools().isRunning());
    EXPECT_EQ(files(), QStringList());
}

TEST_F(ParanoiaStall, EndsAProgramThatWritesNothing)
{
    setHanging(0);
    EXPECT_EQ(awaitError<DiscError>(verify({})), stalled(0));
    EXPECT_FALSE(tools().isRunning());
    EXPECT_EQ(files(), QStringList());
}

TEST_F(ParanoiaStall, CountsMoreThanWhatTheProgramComplainsOf)
{
    setHanging(44, "echo 'error' >&2");
    EXPECT_EQ(awaitError<DiscError>(rip()), stalled(44));
}

TEST_F(ParanoiaStall, CountsMoreThanHowTheProgramTakesItsEnd)
{
    for (const QByteArray status : {"0", "3"}) {
        setProgram("trap 'exit " + status + "' TERM; write 500; while :; do sleep 0.01; done");
        EXPECT_EQ(awaitError<DiscError>(rip()), stalled(500)) << status.toStdString();
    }
}

TEST_F(ParanoiaStall, IsToldByItsPlaceOnAnEnhancedDisc)
{
    track.frameCount = 1000;
    track.precedesDataSession = true;
    setHanging(44 + 700 * discFrameBytes);
    const auto nearTheEnd = awaitError<DiscError>(rip());
    ASSERT_TRUE(nearTheEnd.has_value());
    EXPECT_TRUE(nearTheEnd->text.startsWith(u"Secure reading stopped 300 frames from the end"_s));
    setHanging(44 + 500 * discFrameBytes);
    const auto farFromIt = awaitError<DiscError>(rip());
    ASSERT_TRUE(farFromIt.has_value());
    EXPECT_TRUE(
        farFromIt->text.startsWith(u"The drive stopped making progress at 1176044 of 2352044 bytes"_s));
}

TEST_F(ParanoiaStall, IsNoneWhileTheFileGrowsHoweverSlowly)
{
    using namespace std::chrono_literals;
    // Takes twice the patience in all, but not from one growth to the next.
    setProgram("for n in 1 2 3 4 5 6 7 8 9 10; do write 2400; sleep 0.1; done");
    ParanoiaRippingService lessPatient(tools().location(), tools().path(), {.poll = 1ms, .patience = 500ms});
    const RippedTrack ripped = await(lessPatient.rip(track, disc, {}, {}));
    EXPECT_EQ(test::readFile(ripped.url.toLocalFile()).size(), 24000);
}

} // namespace tonearm
