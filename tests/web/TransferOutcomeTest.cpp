// SPDX-License-Identifier: GPL-3.0-or-later
#include "web/TransferOutcome.h"

#include "helpers/Printing.h"

#include <gtest/gtest.h>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

using enum MetadataSource;

std::optional<MetadataServiceError> failureOfStatus(int status)
{
    return failureOf({.status = status}, discogs);
}

std::optional<MetadataServiceError> failureOfError(QNetworkReply::NetworkError error,
                                                   std::optional<int> status = std::nullopt)
{
    return failureOf({.error = error, .errorText = u"It rained"_s, .status = status}, discogs);
}

} // namespace

TEST(TransferOutcome, IsGoodFrom200To299)
{
    for (const int status : {200, 201, 204, 206, 299})
        EXPECT_EQ(failureOfStatus(status), std::nullopt) << status;
}

TEST(TransferOutcome, IsToldByItsStatus)
{
    EXPECT_EQ(failureOfStatus(401), MetadataServiceError::unauthorized(discogs));
    EXPECT_EQ(failureOfStatus(403), MetadataServiceError::unauthorized(discogs));
    EXPECT_EQ(failureOfStatus(429), MetadataServiceError::rateLimited(discogs));
    EXPECT_EQ(failureOfStatus(503), MetadataServiceError::rateLimited(discogs));
    for (const int status : {100, 199, 300, 304, 400, 402, 404, 410, 418, 500, 502, 504, 599})
        EXPECT_EQ(failureOfStatus(status), MetadataServiceError::httpFailure(discogs, status));
}

TEST(TransferOutcome, IsToldByItsStatusThoughTheNetworkCallsThatAnError)
{
    EXPECT_EQ(failureOfError(QNetworkReply::AuthenticationRequiredError, 401),
              MetadataServiceError::unauthorized(discogs));
    EXPECT_EQ(failureOfError(QNetworkReply::ContentNotFoundError, 404),
              MetadataServiceError::httpFailure(discogs, 404));
    EXPECT_EQ(failureOfError(QNetworkReply::ProtocolInvalidOperationError, 400),
              MetadataServiceError::httpFailure(discogs, 400));
    EXPECT_EQ(failureOfError(QNetworkReply::ServiceUnavailableError, 503),
              MetadataServiceError::rateLimited(discogs));
    EXPECT_EQ(failureOfError(QNetworkReply::ProxyAuthenticationRequiredError, 407),
              MetadataServiceError::httpFailure(discogs, 407));
}

TEST(TransferOutcome, IsANetworkFailureWhereTheTransferBroke)
{
    const auto failure = MetadataServiceError::networkFailure(discogs, u"It rained."_s);
    EXPECT_EQ(failureOfError(QNetworkReply::HostNotFoundError), failure);
    EXPECT_EQ(failureOfError(QNetworkReply::RemoteHostClosedError, 200), failure);
    EXPECT_EQ(failureOfError(QNetworkReply::RemoteHostClosedError, 404), failure);
    EXPECT_EQ(failureOfError(QNetworkReply::ProxyAuthenticationRequiredError), failure);
    EXPECT_EQ(failureOfError(QNetworkReply::TooManyRedirectsError, 302), failure);
    EXPECT_EQ(failureOfError(QNetworkReply::UnknownContentError, 200), failure);
}

TEST(TransferOutcome, IsANetworkFailureWhereAReplyIsCutOff)
{
    const auto failure = MetadataServiceError::networkFailure(discogs, u"Connection closed."_s);
    EXPECT_EQ(failureOf({.status = 200, .isCutOff = true}, discogs), failure);
    EXPECT_EQ(
        failureOf({.error = QNetworkReply::ContentNotFoundError, .status = 404, .isCutOff = true}, discogs),
        failure);
    EXPECT_EQ(failureOf({.isCutOff = true}, discogs), failure);
}

TEST(TransferOutcome, HasWordsForATimeout)
{
    const auto failure = MetadataServiceError::networkFailure(discogs, u"The request timed out."_s);
    EXPECT_EQ(failureOfError(QNetworkReply::OperationCanceledError), failure);
    EXPECT_EQ(failureOfError(QNetworkReply::TimeoutError, 200), failure);
}

TEST(TransferOutcome, EndsTheNetworksWordsWithOneFullStop)
{
    EXPECT_EQ(failureOf({.error = QNetworkReply::UnknownNetworkError, .errorText = u"It rained."_s}, discogs),
              MetadataServiceError::networkFailure(discogs, u"It rained."_s));
}

TEST(TransferOutcome, TellsThatAReplyIsTooLarge)
{
    EXPECT_EQ(failureOf({.status = 200, .bodyLimit = 32'000'000, .isTooLarge = true}, discogs),
              MetadataServiceError::networkFailure(discogs, u"The reply is larger than 32 MB."_s));
}

TEST(TransferOutcome, TellsThatAReplyIsDamaged)
{
    EXPECT_EQ(failureOf({.status = 200, .isDamaged = true}, discogs),
              MetadataServiceError::networkFailure(discogs, u"The reply couldn't be unpacked."_s));
}

TEST(TransferOutcome, PrefersTheStatusOfAReplyThatIsTooLarge)
{
    EXPECT_EQ(failureOf({.status = 503, .bodyLimit = 10, .isTooLarge = true}, discogs),
              MetadataServiceError::rateLimited(discogs));
}

TEST(TransferOutcome, TellsThatAReplyIsNoHttp)
{
    EXPECT_EQ(failureOf(TransferOutcome(), discogs),
              MetadataServiceError::malformedResponse(discogs, u"The reply wasn't an HTTP response."_s));
}

} // namespace tonearm
