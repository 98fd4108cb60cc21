// SPDX-License-Identifier: GPL-3.0-or-later
#include "web/WebSession.h"

#include "helpers/Await.h"
#include "helpers/LoopbackServer.h"
#include "helpers/Printing.h"
#include "web/WebRequests.h"

#include <gtest/gtest.h>

namespace tonearm {

using namespace std::chrono_literals;
using namespace Qt::StringLiterals;
using test::LoopbackResponse;
using test::LoopbackServer;

namespace {

const QByteArray body = "{\"releases\": []}";

/// The words for a transfer that ends as the response has it.
QString networkDetail(const LoopbackResponse &response, std::chrono::milliseconds timeout = 10s)
{
    LoopbackServer server;
    server.answer("/", response);
    WebSession session(timeout);
    return test::networkDetail(test::fetchFailure(session, server.url(u"/"_s)));
}

const QString timedOut = u"The request timed out."_s;
const QString closed = u"Connection closed."_s;

} // namespace

TEST(WebSessionBrokenTransfer, TellsThatNobodyListens)
{
    const QString origin = LoopbackServer().origin();
    WebSession session;
    EXPECT_EQ(test::networkDetail(test::fetchFailure(session, QUrl(origin))), u"Connection refused."_s);
}

TEST(WebSessionBrokenTransfer, TellsThatAHostIsUnknown)
{
    // "invalid" is reserved for names that never exist.
    WebSession session;
    EXPECT_EQ(test::networkDetail(test::fetchFailure(session, QUrl(u"http://tonearm.invalid/"_s))),
              u"Host tonearm.invalid not found."_s);
}

TEST(WebSessionBrokenTransfer, TellsThatAServerHungUp)
{
    EXPECT_EQ(networkDetail(LoopbackResponse::hangUp()), closed);
}

TEST(WebSessionBrokenTransfer, TakesNoPartOfABodyForTheWhole)
{
    EXPECT_EQ(networkDetail(LoopbackResponse::json(body).cutAfter(0)), closed);
    EXPECT_EQ(networkDetail(LoopbackResponse::json(body).cutAfter(5)), closed);
    EXPECT_EQ(networkDetail(LoopbackResponse::json(body).cutAfter(body.size() - 1)), closed);
}

TEST(WebSessionBrokenTransfer, TakesNoBodyShorterThanItsLength)
{
    EXPECT_EQ(networkDetail(LoopbackResponse::json(body).claiming(body.size() + 1).cutAfter(body.size())),
              closed);
}

TEST(WebSessionBrokenTransfer, TakesNoMoreOfABodyThanItsLength)
{
    LoopbackServer server;
    server.answer("/", LoopbackResponse::json("{} and more").claiming(2));
    WebSession session;
    EXPECT_EQ(test::fetch(session, server.url(u"/"_s)).body, "{}");
    EXPECT_EQ(test::fetch(session, server.url(u"/"_s)).body, "{}") << "the rest spoils the next reply";
}

TEST(WebSessionBrokenTransfer, TakesNoPackedChunksWithoutTheLastOne)
{
    // Which words it gets depends on whether Qt notices that the last chunk is missing.
    auto packed = LoopbackResponse::json(body).gzipped().inPieces(4, 0ms).chunked();
    EXPECT_NE(networkDetail(packed.cutAfter(8)), u""_s);
}

TEST(WebSessionBrokenTransfer, MixesNoTwoReplies)
{
    LoopbackServer server;
    server.answerInTurn("/", {LoopbackResponse::hangUp(), LoopbackResponse::json(body)});
    WebSession session;
    EXPECT_EQ(test::networkDetail(test::fetchFailure(session, server.url(u"/"_s))), closed);
}

TEST(WebSessionBrokenTransfer, TakesNoPartOfAPackedBody)
{
    const auto packed = LoopbackResponse::json(QByteArray(100'000, 'a')).gzipped();
    EXPECT_EQ(networkDetail(LoopbackResponse(packed).cutAfter(packed.body.size() / 2)), closed);
}

TEST(WebSessionBrokenTransfer, RefusesADamagedPack)
{
    auto packed = LoopbackResponse::json(body).gzipped();
    packed.body.chop(1);
    EXPECT_EQ(networkDetail(packed), u"The reply couldn't be unpacked."_s);
}

TEST(WebSessionBrokenTransfer, TellsThatAConnectionWasReset)
{
    EXPECT_NE(networkDetail(LoopbackResponse::json(body).resetAfter(5)), u""_s);
}

TEST(WebSessionBrokenTransfer, TellsABrokenFailureByTheBreak)
{
    EXPECT_EQ(networkDetail(LoopbackResponse::withStatus(404).cutAfter(5)), closed);
}

TEST(WebSessionBrokenTransfer, RefusesWhatIsNoHttp)
{
    EXPECT_NE(networkDetail(LoopbackResponse{.body = "220 ready\r\n", .hasHead = false}.cutAfter(11)), u""_s);
}

TEST(WebSessionBrokenTransfer, TimesOutWhereAServerSaysNothing)
{
    EXPECT_EQ(networkDetail(LoopbackResponse::silence(), 50ms), timedOut);
}

TEST(WebSessionBrokenTransfer, TimesOutWhereABodyStops)
{
    EXPECT_EQ(networkDetail(LoopbackResponse::json(body).stalledAfter(5), 50ms), timedOut);
}

TEST(WebSessionBrokenTransfer, GivesATransferThatGoesOnAllTheTimeItNeeds)
{
    LoopbackServer server;
    server.answer("/", LoopbackResponse::json(body).inPieces(1, 80ms));
    WebSession session(1000ms);
    EXPECT_EQ(test::fetch(session, server.url(u"/"_s)).body, body);
}

} // namespace tonearm
