// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/records/ReleaseInfo.h"

#include "helpers/Printing.h"

#include <gtest/gtest.h>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

const ReleaseInfo known = {.id = u"r1"_s,
                           .artist = u"Artist"_s,
                           .title = u"Title"_s,
                           .year = u"1999-05-12"_s,
                           .label = u"Label"_s,
                           .catalogNumber = u"CAT 1"_s,
                           .country = u"DE"_s,
                           .packaging = u"Jewel Case"_s,
                           .mediaFormat = u"CD"_s,
                           .trackCount = 12};

} // namespace

TEST(ReleaseInfo, CountsItsTracklistBeforeTheCountItWasTold)
{
    EXPECT_EQ((ReleaseInfo{.tracks = {TrackInfo{}}, .trackCount = 9}.trackCountText()), u"1 track"_s);
    EXPECT_EQ((ReleaseInfo{.tracks = {TrackInfo{}, TrackInfo{}}}.trackCountText()), u"2 tracks"_s);
    EXPECT_EQ(ReleaseInfo{.trackCount = 1}.trackCountText(), u"1 track"_s);
    EXPECT_EQ(ReleaseInfo{.trackCount = 12}.trackCountText(), u"12 tracks"_s);
    EXPECT_EQ(ReleaseInfo{.trackCount = 0}.trackCountText(), u"0 tracks"_s);
}

TEST(ReleaseInfo, HasNoTrackCountTextWhereTheNumberIsUnknown)
{
    EXPECT_EQ(ReleaseInfo{}.trackCountText(), std::nullopt);
    EXPECT_EQ((ReleaseInfo{.label = u"L"_s, .mediaFormat = u"CD"_s}.detailLine()), u"CD · L"_s);
}

TEST(ReleaseInfo, IsShownByArtistTitleYearAndService)
{
    ReleaseInfo release = known;
    EXPECT_EQ(release.displayName(), u"Artist - Title (1999-05-12) [MusicBrainz]"_s);
    release.year.clear();
    EXPECT_EQ(release.displayName(), u"Artist - Title [MusicBrainz]"_s);
    release.artist.clear();
    release.source = MetadataSource::discogs;
    EXPECT_EQ(release.displayName(), u"Title [Discogs]"_s);
}

TEST(ReleaseInfo, IsShownByItsIdWithoutArtistAndTitle)
{
    EXPECT_EQ(ReleaseInfo{.id = u"r7"_s}.displayName(), u"r7 [MusicBrainz]"_s);
    EXPECT_EQ((ReleaseInfo{.id = u"r7"_s, .year = u"1999"_s}.displayName()), u"r7 (1999) [MusicBrainz]"_s);
}

TEST(ReleaseInfo, TellsItsDetailsInOneLine)
{
    ReleaseInfo release = known;
    EXPECT_EQ(release.detailLine(), u"12 tracks · CD · DE · Label · CAT 1"_s);
    release.country.clear();
    release.catalogNumber.clear();
    EXPECT_EQ(release.detailLine(), u"12 tracks · CD · Label"_s);
    EXPECT_EQ(ReleaseInfo{}.detailLine(), u""_s);
}

TEST(TrackInfo, IsToldApartFromOneThatLooksTheSame)
{
    const TrackInfo first{.position = u"1"_s, .title = u"Intro"_s};
    const TrackInfo second{.position = u"1"_s, .title = u"Intro"_s};
    EXPECT_FALSE(first.id.isNull());
    EXPECT_NE(first.id, second.id);
    EXPECT_NE(first, second);
    EXPECT_EQ(first, TrackInfo(first));
}

} // namespace tonearm
