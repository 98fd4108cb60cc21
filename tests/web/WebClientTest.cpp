// SPDX-License-Identifier: GPL-3.0-or-later
#include "web/WebClient.h"

#include "helpers/Await.h"
#include "helpers/LoopbackServer.h"
#include "helpers/Printing.h"
#include "support/Cancellation.h"

#include <gtest/gtest.h>

namespace tonearm {

using namespace std::chrono_literals;
using namespace Qt::StringLiterals;
using test::LoopbackResponse;
using test::LoopbackServer;

namespace {

using enum MetadataSource;

QString readTitle(const JsonNode &reply)
{
    return reply.require(u"title"_s).text();
}

/// A client of a server of its own.
struct Surroundings
{
    LoopbackServer server;
    WebSession session{10s};
    WebClient client;

    explicit Surroundings(std::chrono::milliseconds interval = 0ms)
        : client(session, {.source = discogs, .host = server.origin(), .userAgent = u"Tonearm/2.3"_s},
                 RequestThrottle(interval))
    {
    }

    QCoro::Task<QString> get(const QStringList &path, const QList<QueryPair> &query = {},
                             std::stop_token stop = {})
    {
        return client.get(path, query, &readTitle, stop);
    }

    std::optional<MetadataServiceError> failure(const LoopbackResponse &response)
    {
        server.answer("/a", response);
        return test::awaitError<MetadataServiceError>(get({u"a"_s}));
    }
};

MetadataServiceError malformed(const QString &detail)
{
    return MetadataServiceError::malformedResponse(discogs, detail);
}

} // namespace

TEST(WebClient, AsksForWhatItIsTold)
{
    Surroundings surroundings;
    surroundings.server.answer("/database/search", LoopbackResponse::json("{\"title\": \"ä\"}"));
    const QString title = test::await(surroundings.get(
        {u"database"_s, u"search"_s}, {{u"artist"_s, u"AC/DC"_s}, {u"type"_s, u"release"_s}}));
    EXPECT_EQ(title, u"ä"_s);
    const auto asked = surroundings.server.requests().value(0);
    EXPECT_EQ(asked.target, "/database/search?artist=AC%2FDC&type=release");
    EXPECT_EQ(asked.header("User-Agent"), "Tonearm/2.3");
    EXPECT_EQ(asked.header("Accept"), "application/json");
}

TEST(WebClient, ReadsTheReplyOnItsOwnThread)
{
    Surroundings surroundings;
    surroundings.server.answer("/a", LoopbackResponse::json("{}"));
    const auto read = [](const JsonNode &) { return QThread::currentThread(); };
    EXPECT_NE(test::await(surroundings.client.get({u"a"_s}, {}, read, {})), QThread::currentThread());
}

TEST(WebClient, TellsWhatIsWrongWithAReply)
{
    Surroundings surroundings;
    EXPECT_EQ(surroundings.failure(LoopbackResponse::json("{\"title\": 7}")),
              malformed(u"Unexpected value at \"title\"."_s));
    EXPECT_EQ(surroundings.failure(LoopbackResponse::json("{}")),
              malformed(u"Expected field \"title\" was missing."_s));
    EXPECT_EQ(surroundings.failure(LoopbackResponse::json("[]")),
              malformed(u"Expected an object at the top but found an array."_s));
}

TEST(WebClient, FindsNoJsonInWhatIsNone)
{
    Surroundings surroundings;
    const auto failure = malformed(u"The response wasn't valid JSON."_s);
    EXPECT_EQ(surroundings.failure(LoopbackResponse::withStatus(204)), failure);
    EXPECT_EQ(surroundings.failure(LoopbackResponse::html("<html>Log in first</html>")), failure);
    EXPECT_EQ(surroundings.failure(LoopbackResponse::json("{\"title\": \"\xff\"}")), failure);
    EXPECT_EQ(surroundings.failure(LoopbackResponse::json(QByteArray(100'000, '['))), failure);
    EXPECT_EQ(surroundings.failure(LoopbackResponse::json("{\"title\": \"a\"}").claiming(10)), failure);
}

TEST(WebClient, TakesNoPartOfAReplyForTheWhole)
{
    // Which words it gets depends on whether Qt notices that the last chunk is missing.
    Surroundings surroundings;
    const auto reply = LoopbackResponse::json("{\"title\": \"a\"}").inPieces(4, 0ms).chunked();
    for (const qsizetype count : {0, 1, 8, 13})
        EXPECT_TRUE(surroundings.failure(LoopbackResponse(reply).cutAfter(count)).has_value()) << count;
}

TEST(WebClient, ReadsJsonWhateverItsTypeIsSaidToBe)
{
    Surroundings surroundings;
    surroundings.server.answer("/a", LoopbackResponse::bytes("image/png", "{\"title\": \"a\"}"));
    EXPECT_EQ(test::await(surroundings.get({u"a"_s})), u"a"_s);
}

TEST(WebClient, PassesOnWhatTheServiceRefuses)
{
    Surroundings surroundings;
    EXPECT_EQ(surroundings.failure(LoopbackResponse::withStatus(404)),
              MetadataServiceError::httpFailure(discogs, 404));
    EXPECT_EQ(surroundings.failure(LoopbackResponse::withStatus(429)),
              MetadataServiceError::rateLimited(discogs));
    EXPECT_EQ(surroundings.server.requests().size(), 2) << "a request was repeated";
}

TEST(WebClient, AsksNothingWithAQueryThatIsNoUrl)
{
    Surroundings surroundings;
    EXPECT_EQ(test::awaitError<MetadataServiceError>(surroundings.get({u""_s})),
              MetadataServiceError::invalidQuery(u""_s));
    EXPECT_EQ(surroundings.server.connectionCount(), 0);
}

TEST(WebClient, KeepsItsIntervalBetweenRequests)
{
    Surroundings surroundings(100ms);
    surroundings.server.answer("/a", LoopbackResponse::json("{\"title\": \"a\"}"));
    const auto start = std::chrono::steady_clock::now();
    auto first = surroundings.get({u"a"_s});
    auto second = surroundings.get({u"a"_s});
    auto third = surroundings.get({u"a"_s});
    test::await(std::move(first));
    test::await(std::move(second));
    test::await(std::move(third));
    const auto requests = surroundings.server.requests();
    ASSERT_EQ(requests.size(), 3);
    // A busy machine may bring the first one late, so that only the slots count.
    EXPECT_GE(requests[1].arrival - start, 100ms);
    EXPECT_GE(requests[2].arrival - start, 200ms);
}

TEST(WebClient, SendsRequestsInTheOrderOfTheCalls)
{
    Surroundings surroundings(20ms);
    surroundings.server.answerWith([](const auto &) { return LoopbackResponse::json("{\"title\": \"\"}"); });
    auto first = surroundings.get({u"1"_s});
    auto second = surroundings.get({u"2"_s});
    auto third = surroundings.get({u"3"_s});
    test::await(std::move(third));
    test::await(std::move(second));
    test::await(std::move(first));
    QByteArrayList paths;
    for (const auto &request : surroundings.server.requests())
        paths.append(request.path());
    EXPECT_EQ(paths, (QByteArrayList{"/1", "/2", "/3"}));
}

TEST(WebClient, WaitsForNoReplyBeforeTheNextRequest)
{
    Surroundings surroundings;
    surroundings.server.answer("/silent", LoopbackResponse::silence());
    surroundings.server.answer("/a", LoopbackResponse::json("{\"title\": \"a\"}"));
    std::stop_source stop;
    auto silent = surroundings.get({u"silent"_s}, {}, stop.get_token());
    EXPECT_EQ(test::await(surroundings.get({u"a"_s})), u"a"_s);
    stop.request_stop();
    EXPECT_TRUE(test::awaitError<CancellationError>(std::move(silent)).has_value());
}

TEST(WebClient, SendsNothingWhenCancelledInTheQueue)
{
    Surroundings surroundings(1h);
    surroundings.server.answer("/a", LoopbackResponse::json("{\"title\": \"a\"}"));
    test::await(surroundings.get({u"a"_s}));
    std::stop_source stop;
    auto waiting = surroundings.get({u"a"_s}, {}, stop.get_token());
    stop.request_stop();
    EXPECT_TRUE(test::awaitError<CancellationError>(std::move(waiting)).has_value());
    EXPECT_EQ(surroundings.server.requests().size(), 1);
}

TEST(WebClient, AbortsTheTransferWhenCancelled)
{
    Surroundings surroundings;
    surroundings.server.answer("/a", LoopbackResponse::json("{\"title\": \"a\"}").stalledAfter(5));
    std::stop_source stop;
    auto running = surroundings.get({u"a"_s}, {}, stop.get_token());
    ASSERT_TRUE(test::eventually([&] { return surroundings.server.requests().size() == 1; }));
    stop.request_stop();
    EXPECT_TRUE(test::awaitError<CancellationError>(std::move(running)).has_value());
    EXPECT_TRUE(test::eventually([&] { return surroundings.server.openConnectionCount() == 0; }));
}

} // namespace tonearm
