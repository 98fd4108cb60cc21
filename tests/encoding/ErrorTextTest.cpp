// SPDX-License-Identifier: GPL-3.0-or-later
#include "encoding/AudioEncodingError.h"
#include "encoding/ChapterExtractionError.h"

#include "helpers/Printing.h"

#include <gtest/gtest.h>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

const QUrl movie = QUrl::fromLocalFile(u"/videos/My \"50%\" movie #1.mkv"_s);
const QUrl outputFolder = QUrl::fromLocalFile(u"/music/My Music/"_s);

} // namespace

TEST(ChapterExtractionError, TellsThatAFileIsUnreadable)
{
    const auto error = ChapterExtractionError::unreadableFile(movie);
    EXPECT_EQ(error.description(), u"\"My \"50%\" movie #1.mkv\" couldn't be opened."_s);
    EXPECT_EQ(error.recoverySuggestion(),
              u"Check the file still exists and that you have permission to read it."_s);
}

TEST(ChapterExtractionError, TellsThatAFileIsNoMatroska)
{
    const auto error = ChapterExtractionError::notMatroska(movie);
    EXPECT_EQ(error.description(), u"\"My \"50%\" movie #1.mkv\" isn't a Matroska (.mkv) file."_s);
    EXPECT_EQ(error.recoverySuggestion(), u"Choose a .mkv file, or remux the video to Matroska first."_s);
}

TEST(ChapterExtractionError, TellsThatAFileHasNoChapters)
{
    const auto error = ChapterExtractionError::noChapters(movie);
    EXPECT_EQ(error.description(), u"\"My \"50%\" movie #1.mkv\" has no chapter markers."_s);
    EXPECT_EQ(error.recoverySuggestion(),
              u"Tonearm splits a file at its chapter markers, so the source needs them. Re-rip the disc with "
              "chapters preserved, or add them with a tool like MKVToolNix."_s);
}

TEST(ChapterExtractionError, TellsWhatTheDecoderSaid)
{
    const auto error = ChapterExtractionError::malformedOutput(u"Expected a text."_s);
    EXPECT_EQ(error.description(), u"ffprobe returned data that couldn't be read. Expected a text."_s);
    EXPECT_EQ(error.recoverySuggestion(),
              u"Check that ffprobe runs correctly in Terminal, then try again."_s);
}

TEST(ChapterExtractionError, IsEqualByKindAndPayload)
{
    EXPECT_EQ(ChapterExtractionError::noChapters(movie), ChapterExtractionError::noChapters(movie));
    EXPECT_FALSE(ChapterExtractionError::noChapters(movie) == ChapterExtractionError::notMatroska(movie));
    EXPECT_FALSE(ChapterExtractionError::noChapters(movie) ==
                 ChapterExtractionError::noChapters(outputFolder));
    EXPECT_FALSE(ChapterExtractionError::malformedOutput(u"a"_s) ==
                 ChapterExtractionError::malformedOutput(u"b"_s));
}

TEST(AudioEncodingError, TellsThatAFolderCantBeMade)
{
    const auto error = AudioEncodingError::outputDirectoryUnavailable(outputFolder);
    EXPECT_EQ(error.description(), u"The output folder \"My Music\" couldn't be created."_s);
    EXPECT_EQ(error.recoverySuggestion(), u"Choose a different output folder."_s);
}

TEST(AudioEncodingError, TellsThatAFolderCantBeWritten)
{
    const auto error = AudioEncodingError::outputDirectoryNotWritable(outputFolder);
    EXPECT_EQ(error.description(), u"The output folder \"My Music\" isn't writable."_s);
    EXPECT_EQ(error.recoverySuggestion(), u"Choose a different output folder."_s);
}

TEST(AudioEncodingError, CountsTheTracksWithoutATitle)
{
    EXPECT_EQ(AudioEncodingError::untitledChapters(1).description(), u"One track still needs a title."_s);
    EXPECT_EQ(AudioEncodingError::untitledChapters(12).description(), u"12 tracks still need titles."_s);
    EXPECT_EQ(AudioEncodingError::untitledChapters(1).recoverySuggestion(),
              u"Fill in the remaining song titles, or map a release's tracklist."_s);
}

TEST(AudioEncodingError, TellsThatACoverIsUnreadable)
{
    const auto error = AudioEncodingError::coverArtUnreadable(QUrl::fromLocalFile(u"/art/c.jpg"_s));
    EXPECT_EQ(error.description(), u"The cover image \"c.jpg\" couldn't be opened."_s);
    EXPECT_EQ(error.recoverySuggestion(),
              u"Choose the image again, or remove it to encode without cover art."_s);
}

TEST(AudioEncodingError, TellsThatThereAreNoChapters)
{
    const auto error = AudioEncodingError::noChapters();
    EXPECT_EQ(error.description(), u"There are no chapters to encode."_s);
    EXPECT_EQ(error.recoverySuggestion(), u"Load an .mkv file that has chapter markers."_s);
}

TEST(AudioEncodingError, TellsHowMuchOfATrackCouldBeRead)
{
    const auto error = AudioEncodingError::incompleteTrack(1.46, 4, u"File ended prematurely"_s);
    EXPECT_EQ(error.description(), u"Only 1.5 of 4.0 seconds could be read. File ended prematurely"_s);
    EXPECT_EQ(error.recoverySuggestion(), u"Check the source file; it may be damaged or incomplete."_s);
}

TEST(AudioEncodingError, IsEqualByKindAndPayload)
{
    const auto incomplete = AudioEncodingError::incompleteTrack(1, 4, u"a"_s);
    EXPECT_EQ(incomplete, AudioEncodingError::incompleteTrack(1, 4, u"a"_s));
    EXPECT_FALSE(incomplete == AudioEncodingError::incompleteTrack(2, 4, u"a"_s));
    EXPECT_FALSE(incomplete == AudioEncodingError::incompleteTrack(1, 5, u"a"_s));
    EXPECT_FALSE(incomplete == AudioEncodingError::incompleteTrack(1, 4, u"b"_s));
    EXPECT_EQ(AudioEncodingError::untitledChapters(2), AudioEncodingError::untitledChapters(2));
    EXPECT_FALSE(AudioEncodingError::untitledChapters(2) == AudioEncodingError::untitledChapters(3));
    EXPECT_FALSE(AudioEncodingError::outputDirectoryUnavailable(outputFolder) ==
                 AudioEncodingError::outputDirectoryNotWritable(outputFolder));
    EXPECT_FALSE(AudioEncodingError::coverArtUnreadable(outputFolder) ==
                 AudioEncodingError::coverArtUnreadable(movie));
}

} // namespace tonearm
