// SPDX-License-Identifier: GPL-3.0-or-later
#include "artwork/CoverArtError.h"

#include "helpers/Printing.h"

#include <gtest/gtest.h>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

const QUrl cover = QUrl::fromLocalFile(u"/pictures/My \"50%\" cover #1.jpg"_s);
const QUrl otherFile = QUrl::fromLocalFile(u"/pictures/otherFile.png"_s);

} // namespace

TEST(CoverArtError, TellsThatAFileIsNoPicture)
{
    const auto error = CoverArtError::unreadableImage(cover);
    EXPECT_EQ(error.description(), u"\"My \"50%\" cover #1.jpg\" couldn't be read as an image."_s);
    EXPECT_EQ(error.recoverySuggestion(), u"Try a different JPEG or PNG."_s);
}

TEST(CoverArtError, TellsThatAPictureCantBeShrunk)
{
    const auto error = CoverArtError::couldNotShrink(cover);
    EXPECT_EQ(error.description(),
              u"\"My \"50%\" cover #1.jpg\" couldn't be re-encoded to fit the size limit."_s);
    EXPECT_EQ(error.recoverySuggestion(), u"Try a different JPEG or PNG."_s);
}

TEST(CoverArtError, TellsAsWhatThePictureCame)
{
    const auto error = CoverArtError::unsupportedImageType(u"image/webp"_s);
    EXPECT_EQ(error.description(), u"The artwork came back as image/webp, which FLAC can't carry."_s);
    EXPECT_EQ(error.recoverySuggestion(), u"Try a different JPEG or PNG."_s);
}

TEST(CoverArtError, TellsThatMusicBrainzHasNoCover)
{
    const auto error = CoverArtError::noArtworkAvailable(MetadataSource::musicBrainz);
    EXPECT_EQ(error.description(), u"MusicBrainz has no cover art for this release."_s);
    EXPECT_EQ(error.recoverySuggestion(), u"Try a Discogs result instead, or drag in your own image."_s);
}

TEST(CoverArtError, TellsThatDiscogsHasNoCover)
{
    const auto error = CoverArtError::noArtworkAvailable(MetadataSource::discogs);
    EXPECT_EQ(error.description(), u"Discogs has no cover art for this release."_s);
    EXPECT_EQ(error.recoverySuggestion(), u"Drag in your own image, or try a MusicBrainz result."_s);
}

TEST(CoverArtError, TellsThatNoReleaseIsSelected)
{
    const auto error = CoverArtError::noReleaseSelected();
    EXPECT_EQ(error.description(), u"No release is selected."_s);
    EXPECT_EQ(error.recoverySuggestion(), u"Search for the album and choose a release first."_s);
}

TEST(CoverArtError, IsEqualByKindAndPayload)
{
    EXPECT_EQ(CoverArtError::unreadableImage(cover), CoverArtError::unreadableImage(cover));
    EXPECT_FALSE(CoverArtError::unreadableImage(cover) == CoverArtError::unreadableImage(otherFile));
    EXPECT_FALSE(CoverArtError::unreadableImage(cover) == CoverArtError::couldNotShrink(cover));
    EXPECT_FALSE(CoverArtError::couldNotShrink(cover) == CoverArtError::couldNotShrink(otherFile));
    EXPECT_EQ(CoverArtError::unsupportedImageType(u"a"_s), CoverArtError::unsupportedImageType(u"a"_s));
    EXPECT_FALSE(CoverArtError::unsupportedImageType(u"a"_s) == CoverArtError::unsupportedImageType(u"b"_s));
    EXPECT_FALSE(CoverArtError::noArtworkAvailable(MetadataSource::discogs) ==
                 CoverArtError::noArtworkAvailable(MetadataSource::musicBrainz));
    EXPECT_EQ(CoverArtError::noReleaseSelected(), CoverArtError::noReleaseSelected());
}

} // namespace tonearm
