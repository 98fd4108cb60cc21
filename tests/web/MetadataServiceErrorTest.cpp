// SPDX-License-Identifier: GPL-3.0-or-later
#include "web/MetadataServiceError.h"

#include "helpers/Printing.h"

#include <gtest/gtest.h>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

using enum MetadataSource;

} // namespace

TEST(MetadataServiceError, TellsThatAQueryCantBeAsked)
{
    const auto error = MetadataServiceError::invalidQuery(u"50% \"off\" %1"_s);
    EXPECT_EQ(error.description(), u"\"50% \"off\" %1\" couldn't be turned into a valid search request."_s);
    EXPECT_EQ(error.recoverySuggestion(), u"Check the artist and album text for stray punctuation."_s);
}

TEST(MetadataServiceError, TellsThatARequestWasUnauthorized)
{
    const auto first = MetadataServiceError::unauthorized(musicBrainz);
    EXPECT_EQ(first.description(), u"MusicBrainz rejected the request as unauthorized."_s);
    EXPECT_EQ(first.recoverySuggestion(),
              u"MusicBrainz searches need no credentials, so this is unexpected. Try again shortly."_s);
    const auto second = MetadataServiceError::unauthorized(discogs);
    EXPECT_EQ(second.description(), u"Discogs rejected the request as unauthorized."_s);
    EXPECT_EQ(second.recoverySuggestion(),
              u"Discogs searches need no credentials, so this is unexpected. Try again shortly."_s);
}

TEST(MetadataServiceError, TellsThatAServiceLimitsRequests)
{
    const auto error = MetadataServiceError::rateLimited(discogs);
    EXPECT_EQ(error.description(), u"Discogs is rate-limiting requests right now."_s);
    EXPECT_EQ(error.recoverySuggestion(), u"Wait a few seconds and search again."_s);
}

TEST(MetadataServiceError, TellsTheStatus)
{
    const auto error = MetadataServiceError::httpFailure(musicBrainz, 1404);
    EXPECT_EQ(error.description(), u"MusicBrainz returned HTTP status 1404."_s);
    EXPECT_EQ(error.recoverySuggestion(), u"The service may be having trouble. Try again shortly."_s);
}

TEST(MetadataServiceError, TellsWhyAReplyCantBeRead)
{
    const auto error = MetadataServiceError::malformedResponse(discogs, u"It %1 rained."_s);
    EXPECT_EQ(error.description(), u"Discogs returned data that couldn't be read. It %1 rained."_s);
    EXPECT_EQ(error.recoverySuggestion(), u"The service may be having trouble. Try again shortly."_s);
}

TEST(MetadataServiceError, TellsWhyAServiceIsOutOfReach)
{
    const auto error = MetadataServiceError::networkFailure(musicBrainz, u"Connection refused."_s);
    EXPECT_EQ(error.description(), u"Couldn't reach MusicBrainz. Connection refused."_s);
    EXPECT_EQ(error.recoverySuggestion(), u"Check your internet connection and try again."_s);
}

TEST(MetadataServiceError, TellsWhichReleaseIsUnknown)
{
    const auto error = MetadataServiceError::releaseNotFound(discogs, u"249504"_s);
    EXPECT_EQ(error.description(), u"Discogs has no release with ID 249504."_s);
    EXPECT_EQ(error.recoverySuggestion(), u"Search again and pick a different release."_s);
}

TEST(MetadataServiceError, IsEqualByKindAndPayload)
{
    EXPECT_EQ(MetadataServiceError::httpFailure(discogs, 404),
              MetadataServiceError::httpFailure(discogs, 404));
    EXPECT_FALSE(MetadataServiceError::httpFailure(discogs, 404) ==
                 MetadataServiceError::httpFailure(discogs, 410));
    EXPECT_FALSE(MetadataServiceError::httpFailure(discogs, 404) ==
                 MetadataServiceError::httpFailure(musicBrainz, 404));
    EXPECT_FALSE(MetadataServiceError::malformedResponse(discogs, u"a"_s) ==
                 MetadataServiceError::networkFailure(discogs, u"a"_s));
    EXPECT_FALSE(MetadataServiceError::networkFailure(discogs, u"a"_s) ==
                 MetadataServiceError::networkFailure(discogs, u"b"_s));
    EXPECT_FALSE(MetadataServiceError::unauthorized(discogs) == MetadataServiceError::rateLimited(discogs));
    EXPECT_EQ(MetadataServiceError::invalidQuery(u"a"_s), MetadataServiceError::invalidQuery(u"a"_s));
}

} // namespace tonearm
