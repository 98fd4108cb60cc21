// SPDX-License-Identifier: GPL-3.0-or-later
#include "metadata/SearchNotice.h"

#include "helpers/Printing.h"
#include "metadata/Records.h"
#include "support/Cancellation.h"
#include "web/MetadataServiceError.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <system_error>

namespace tonearm {

using namespace Qt::StringLiterals;
using test::discogsSource;
using test::musicBrainzSource;
using Error = MetadataServiceError;
using Notice = MetadataSearchOutcome::Notice;

namespace {

template <typename Failure> std::optional<Notice> noticeAbout(const Failure &failure, MetadataSource source)
{
    return noticeOf(std::make_exception_ptr(failure), source);
}

} // namespace

TEST(SearchNotice, TellsTheFailureAndWhatCanBeDone)
{
    EXPECT_EQ(noticeAbout(Error::rateLimited(discogsSource), discogsSource),
              (Notice{.source = discogsSource,
                      .message = u"Discogs is rate-limiting requests right now. "
                                 "Wait a few seconds and search again."_s}));
    EXPECT_EQ(noticeAbout(Error::networkFailure(musicBrainzSource, u"Host not found."_s), musicBrainzSource),
              (Notice{.source = musicBrainzSource,
                      .message = u"Couldn't reach MusicBrainz. Host not found. "
                                 "Check your internet connection and try again."_s}));
}

TEST(SearchNotice, IsAnIssueOfConfigurationWhereTheServiceRefusesTheProgram)
{
    for (const MetadataSource source : {musicBrainzSource, discogsSource}) {
        const auto refused = noticeAbout(Error::unauthorized(source), source);
        ASSERT_TRUE(refused);
        EXPECT_EQ(refused->source, source);
        EXPECT_TRUE(refused->isConfigurationIssue);
    }
    const auto others = noticeAbout(Error::unauthorized(musicBrainzSource), discogsSource);
    ASSERT_TRUE(others);
    EXPECT_FALSE(others->isConfigurationIssue);
}

TEST(SearchNotice, TellsAnyOtherFailureAsOneOfTheNetwork)
{
    EXPECT_EQ(noticeAbout(std::runtime_error("Out of luck."), discogsSource),
              (Notice{.source = discogsSource,
                      .message = u"Couldn't reach Discogs. Out of luck. "
                                 "Check your internet connection and try again."_s}));
    const std::system_error denied(std::make_error_code(std::errc::permission_denied));
    EXPECT_EQ(noticeAbout(denied, musicBrainzSource),
              (Notice{.source = musicBrainzSource,
                      .message = u"Couldn't reach MusicBrainz. Permission denied. "
                                 "Check your internet connection and try again."_s}));
}

TEST(SearchNotice, SaysNothingOfACancellation)
{
    EXPECT_EQ(noticeAbout(CancellationError(), discogsSource), std::nullopt);
}

} // namespace tonearm
