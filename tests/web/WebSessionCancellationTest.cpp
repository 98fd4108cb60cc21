// SPDX-License-Identifier: GPL-3.0-or-later
#include "web/WebSession.h"

#include "helpers/Await.h"
#include "helpers/LoopbackServer.h"
#include "support/Cancellation.h"
#include "web/WebRequests.h"

#include <gtest/gtest.h>

#include <QTcpServer>

#include <thread>

namespace tonearm {

using namespace std::chrono_literals;
using namespace Qt::StringLiterals;
using test::LoopbackResponse;
using test::LoopbackServer;

namespace {

/// A transfer under way and the means to stop it.
struct Stoppable
{
    std::stop_source stop;
    QCoro::Task<WebReply> transfer;

    Stoppable(WebSession &session, const QUrl &url)
        : transfer(session.data(test::requestFor(url), MetadataSource::discogs, maximumJsonBytes,
                                stop.get_token()))
    {
    }

    bool endsCancelled() { return test::awaitError<CancellationError>(std::move(transfer)).has_value(); }
};

} // namespace

TEST(WebSessionCancellation, AsksNothingAfterAStop)
{
    LoopbackServer server;
    WebSession session;
    std::stop_source stop;
    stop.request_stop();
    auto transfer = session.data(test::requestFor(server.url(u"/"_s)), MetadataSource::discogs,
                                 maximumJsonBytes, stop.get_token());
    EXPECT_TRUE(test::awaitError<CancellationError>(std::move(transfer)).has_value());
    EXPECT_EQ(server.connectionCount(), 0);
}

TEST(WebSessionCancellation, EndsWhileAServerDoesntEvenAccept)
{
    // The kernel takes the connection into the queue; nobody ever reads from it.
    QTcpServer deaf;
    ASSERT_TRUE(deaf.listen(QHostAddress::LocalHost));
    deaf.pauseAccepting();
    WebSession session;
    Stoppable running(session, QUrl(u"http://127.0.0.1:%1/"_s.arg(deaf.serverPort())));
    running.stop.request_stop();
    EXPECT_TRUE(running.endsCancelled());
}

TEST(WebSessionCancellation, EndsWhileAServerSaysNothing)
{
    LoopbackServer server;
    server.answer("/", LoopbackResponse::silence());
    WebSession session;
    Stoppable running(session, server.url(u"/"_s));
    ASSERT_TRUE(test::eventually([&] { return server.requests().size() == 1; }));
    running.stop.request_stop();
    EXPECT_TRUE(running.endsCancelled());
    EXPECT_TRUE(test::eventually([&] { return server.openConnectionCount() == 0; }));
}

TEST(WebSessionCancellation, EndsInTheMiddleOfABody)
{
    LoopbackServer server;
    server.answer("/", LoopbackResponse::json(QByteArray(100'000, ' ')).stalledAfter(50'000));
    WebSession session;
    Stoppable running(session, server.url(u"/"_s));
    ASSERT_TRUE(test::eventually([&] { return server.requests().size() == 1; }));
    running.stop.request_stop();
    EXPECT_TRUE(running.endsCancelled());
    EXPECT_TRUE(test::eventually([&] { return server.openConnectionCount() == 0; }));
}

TEST(WebSessionCancellation, TakesAStopFromAnyThread)
{
    LoopbackServer server;
    server.answer("/", LoopbackResponse::silence());
    WebSession session;
    Stoppable running(session, server.url(u"/"_s));
    const std::jthread other([&] { running.stop.request_stop(); });
    EXPECT_TRUE(running.endsCancelled());
}

TEST(WebSessionCancellation, LeavesOtherTransfersAlone)
{
    LoopbackServer server;
    server.answer("/silent", LoopbackResponse::silence());
    server.answer("/slow", LoopbackResponse::json("{}").after(50ms));
    WebSession session;
    Stoppable stopped(session, server.url(u"/silent"_s));
    Stoppable other(session, server.url(u"/slow"_s));
    ASSERT_TRUE(test::eventually([&] { return server.requests().size() == 2; }));
    stopped.stop.request_stop();
    EXPECT_TRUE(stopped.endsCancelled());
    EXPECT_EQ(test::await(std::move(other.transfer)).body, "{}");
}

TEST(WebSessionCancellation, MeetsTheEndOfATransferAtAnyMoment)
{
    LoopbackServer server;
    server.answer("/", LoopbackResponse::json("{}"));
    WebSession session;
    for (int round = 0; round < 50; ++round) {
        Stoppable running(session, server.url(u"/"_s));
        const std::jthread other([&] {
            std::this_thread::sleep_for(round * 50us);
            running.stop.request_stop();
        });
        const auto outcome = [&]() -> bool {
            try {
                return test::await(std::move(running.transfer)).body == "{}";
            } catch (const CancellationError &) {
                return true;
            }
        };
        EXPECT_TRUE(outcome());
    }
}

} // namespace tonearm
