// SPDX-License-Identifier: GPL-3.0-or-later
#include "web/WebSession.h"

#include "helpers/Await.h"
#include "helpers/LoopbackServer.h"
#include "helpers/Printing.h"
#include "web/WebRequests.h"

#include <gtest/gtest.h>

namespace tonearm {

using namespace Qt::StringLiterals;
using test::LoopbackResponse;
using test::LoopbackServer;

TEST(WebSessionLimit, TakesABodyOfJustTheLimit)
{
    LoopbackServer server;
    server.answer("/", LoopbackResponse::json(QByteArray(1'000'000, ' ')));
    WebSession session;
    EXPECT_EQ(test::fetch(session, server.url(u"/"_s), 1'000'000).body.size(), 1'000'000);
}

TEST(WebSessionLimit, RefusesOneByteMore)
{
    LoopbackServer server;
    server.answer("/", LoopbackResponse::json(QByteArray(1'000'001, ' ')));
    WebSession session;
    EXPECT_EQ(test::networkDetail(test::fetchFailure(session, server.url(u"/"_s), 1'000'000)),
              u"The reply is larger than 1 MB."_s);
}

TEST(WebSessionLimit, StopsATransferThatNeverEnds)
{
    LoopbackServer server;
    server.answer("/", LoopbackResponse::json(QByteArray(2'000'000, ' ')).chunked().stalledAfter(2'000'000));
    WebSession session;
    EXPECT_EQ(test::networkDetail(test::fetchFailure(session, server.url(u"/"_s), 1'000'000)),
              u"The reply is larger than 1 MB."_s);
    EXPECT_TRUE(test::eventually([&] { return server.openConnectionCount() == 0; }));
}

TEST(WebSessionLimit, CountsWhatIsUnpacked)
{
    LoopbackServer server;
    QByteArray body;
    for (int index = 0; body.size() <= 1'000'000; ++index)
        body += QByteArray::number(index * 7919) + ' ';
    server.answer("/", LoopbackResponse::json(body).gzipped());
    WebSession session;
    EXPECT_EQ(test::networkDetail(test::fetchFailure(session, server.url(u"/"_s), 1'000'000)),
              u"The reply is larger than 1 MB."_s);
}

TEST(WebSessionLimit, RefusesFewBytesThatUnpackToVeryMany)
{
    LoopbackServer server;
    server.answer("/", LoopbackResponse::json(QByteArray(10'000'000, ' ')).gzipped());
    WebSession session;
    EXPECT_EQ(test::networkDetail(test::fetchFailure(session, server.url(u"/"_s), 1'000'000)),
              u"The reply is larger than 1 MB."_s);
}

TEST(WebSessionLimit, TakesWellPackedBytesWithinTheLimit)
{
    LoopbackServer server;
    server.answer("/", LoopbackResponse::json(QByteArray(5'000'000, ' ')).gzipped());
    WebSession session;
    EXPECT_EQ(test::fetch(session, server.url(u"/"_s)).body.size(), 5'000'000);
}

TEST(WebSessionLimit, TellsALargeFailureByItsStatus)
{
    LoopbackServer server;
    LoopbackResponse response = LoopbackResponse::withStatus(503);
    response.body = QByteArray(2'000'000, ' ');
    server.answer("/", response);
    WebSession session;
    EXPECT_EQ(test::fetchFailure(session, server.url(u"/"_s), 1'000'000),
              MetadataServiceError::rateLimited(MetadataSource::discogs));
}

} // namespace tonearm
