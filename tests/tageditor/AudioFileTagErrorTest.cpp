// SPDX-License-Identifier: GPL-3.0-or-later
#include "tageditor/AudioFileTagError.h"

#include "helpers/Printing.h"

#include <gtest/gtest.h>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

const QUrl quotedSong = QUrl::fromLocalFile(u"/music/My \"Song\".flac"_s);

} // namespace

TEST(AudioFileTagError, TellsOfOutputThatCouldntBeRead)
{
    const AudioFileTagError error = AudioFileTagError::malformedOutput(u"No JSON."_s);
    EXPECT_EQ(error.description(), u"ffprobe returned data that couldn't be read. No JSON."_s);
    EXPECT_EQ(error.recoverySuggestion(),
              u"Check that ffprobe runs correctly in Terminal, then try again."_s);
}

TEST(AudioFileTagError, TellsOfAMissingFile)
{
    const AudioFileTagError error = AudioFileTagError::fileMissing(quotedSong);
    EXPECT_EQ(error.description(), u"\"My \"Song\".flac\" is no longer there."_s);
    EXPECT_EQ(error.recoverySuggestion(), u"Choose the folder again to reload what's actually on disk."_s);
}

TEST(AudioFileTagError, TellsOfAChangedFile)
{
    const AudioFileTagError error = AudioFileTagError::fileChangedOnDisk(quotedSong);
    EXPECT_EQ(error.description(),
              u"\"My \"Song\".flac\" was changed by something else since it was loaded."_s);
    EXPECT_EQ(error.recoverySuggestion(), u"Choose the folder again to reload what's actually on disk."_s);
}

TEST(AudioFileTagError, TellsOfAFileThatCantBeWritten)
{
    const AudioFileTagError error = AudioFileTagError::notWritable(quotedSong);
    EXPECT_EQ(error.description(), u"\"My \"Song\".flac\" can't be written to."_s);
    EXPECT_EQ(error.recoverySuggestion(),
              u"Check the file isn't locked and that you have permission to write to the folder it's in."_s);
}

TEST(AudioFileTagError, TellsOfAMissingPicture)
{
    const AudioFileTagError error = AudioFileTagError::noAttachedPicture(quotedSong);
    EXPECT_EQ(error.description(), u"\"My \"Song\".flac\" has no embedded artwork."_s);
    EXPECT_EQ(error.recoverySuggestion(), u"Choose an image to embed first."_s);
}

TEST(AudioFileTagError, TellsOfOneLostTag)
{
    const AudioFileTagError error = AudioFileTagError::wouldLoseTags(quotedSong, {u"barcode"_s});
    EXPECT_EQ(error.description(),
              u"\"My \"Song\".flac\" would have discarded this tag, so it was left unchanged:\n\nbarcode"_s);
    EXPECT_EQ(
        error.recoverySuggestion(),
        u"These are identifiers rather than anything a player shows — usually MusicBrainz or ReplayGain "
        "values in an .m4a. Save anyway if you don't need them, or edit the file in a tagger that "
        "understands them."_s);
}

TEST(AudioFileTagError, TellsOfSeveralLostTagsInOrder)
{
    EXPECT_EQ(
        AudioFileTagError::wouldLoseTags(quotedSong, {u"b"_s, u"c"_s, u"a"_s}).description(),
        u"\"My \"Song\".flac\" would have discarded these tags, so it was left unchanged:\n\na\nb\nc"_s);
}

TEST(AudioFileTagError, IsEqualByKindAndPayload)
{
    EXPECT_EQ(AudioFileTagError::fileMissing(quotedSong), AudioFileTagError::fileMissing(quotedSong));
    EXPECT_NE(AudioFileTagError::fileMissing(quotedSong), AudioFileTagError::notWritable(quotedSong));
    EXPECT_NE(AudioFileTagError::wouldLoseTags(quotedSong, {u"a"_s}),
              AudioFileTagError::wouldLoseTags(quotedSong, {}));
    EXPECT_NE(AudioFileTagError::malformedOutput(u"a"_s), AudioFileTagError::malformedOutput(u"b"_s));
}

} // namespace tonearm
