// SPDX-License-Identifier: GPL-3.0-or-later
#include "disc/DiscError.h"

#include "helpers/Printing.h"

#include <gtest/gtest.h>

namespace tonearm {

using namespace Qt::StringLiterals;

TEST(DiscError, SaysWhatIsWrong)
{
    EXPECT_EQ(DiscError::notAnAudioDisc(QUrl::fromLocalFile(u"/media/Big Disk"_s)).description(),
              u"\"Big Disk\" isn't a mounted audio CD."_s);
    EXPECT_EQ(DiscError::malformedTOC(u"No sessions were listed."_s).description(),
              u"The disc's table of contents couldn't be read. No sessions were listed."_s);
    EXPECT_EQ(DiscError::trackUnreadable(7).description(), u"Track 7 couldn't be read from the disc."_s);
    EXPECT_EQ(DiscError::trackReadFailed(7, u"It is scratched."_s).description(),
              u"Track 7 couldn't be read from the disc. It is scratched."_s);
    EXPECT_EQ(DiscError::noAudioTracks().description(), u"This disc has no audio tracks."_s);
    EXPECT_EQ(DiscError::driveUnavailable().description(),
              u"The drive holding this disc couldn't be identified."_s);
}

TEST(DiscError, SaysWhatToDo)
{
    EXPECT_EQ(DiscError::notAnAudioDisc(QUrl()).recoverySuggestion(), u"Insert an audio CD and try again."_s);
    EXPECT_EQ(DiscError::malformedTOC({}).recoverySuggestion(), u"Eject the disc and reinsert it."_s);
    EXPECT_EQ(DiscError::trackUnreadable(1).recoverySuggestion(),
              u"Check the disc for scratches, then eject it and try again."_s);
    EXPECT_EQ(DiscError::trackReadFailed(1, {}).recoverySuggestion(),
              u"Check the disc for scratches, then eject it and try again."_s);
    EXPECT_EQ(DiscError::noAudioTracks().recoverySuggestion(), u"Insert an audio CD and try again."_s);
    EXPECT_EQ(
        DiscError::driveUnavailable().recoverySuggestion(),
        u"Eject the disc and reinsert it. If secure ripping is on, try switching it off in Settings."_s);
}

TEST(DiscError, IsEqualByItsCaseAndAllThatItCarries)
{
    const QUrl volume = QUrl::fromLocalFile(u"/media/a"_s);
    EXPECT_EQ(DiscError::notAnAudioDisc(volume), DiscError::notAnAudioDisc(volume));
    EXPECT_NE(DiscError::notAnAudioDisc(volume), DiscError::notAnAudioDisc(QUrl()));
    EXPECT_NE(DiscError::malformedTOC(u"a"_s), DiscError::malformedTOC(u"b"_s));
    EXPECT_NE(DiscError::trackUnreadable(1), DiscError::trackUnreadable(2));
    EXPECT_EQ(DiscError::trackReadFailed(1, u"a"_s), DiscError::trackReadFailed(1, u"a"_s));
    EXPECT_NE(DiscError::trackReadFailed(1, u"a"_s), DiscError::trackReadFailed(2, u"a"_s));
    EXPECT_NE(DiscError::trackReadFailed(1, u"a"_s), DiscError::trackReadFailed(1, u"b"_s));
    EXPECT_NE(DiscError::trackReadFailed(1, {}), DiscError::trackUnreadable(1));
    EXPECT_NE(DiscError::noAudioTracks(), DiscError::driveUnavailable());
}

} // namespace tonearm
