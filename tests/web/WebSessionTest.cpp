// SPDX-License-Identifier: GPL-3.0-or-later
#include "web/WebSession.h"

#include "helpers/Await.h"
#include "helpers/Contents.h"
#include "helpers/LoopbackServer.h"
#include "helpers/Printing.h"
#include "support/Background.h"
#include "web/WebRequests.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>

namespace tonearm {

using namespace std::chrono_literals;
using namespace Qt::StringLiterals;
using test::LoopbackResponse;
using test::LoopbackServer;

namespace {

/// What a status with a page of HTML is told as.
std::optional<MetadataServiceError> failureOfStatus(int status)
{
    LoopbackServer server;
    server.answer("/", LoopbackResponse::withStatus(status));
    WebSession session;
    const auto failure = test::fetchFailure(session, server.url(u"/"_s));
    EXPECT_EQ(server.requests().size(), 1) << "a request was repeated";
    return failure;
}

/// Every value of a byte, a few times over.
QByteArray allBytes()
{
    QByteArray bytes;
    for (int index = 0; index < 100'000; ++index)
        bytes += static_cast<char>(index * 7);
    return bytes;
}

} // namespace

TEST(WebSession, BringsTheBodyAndItsType)
{
    LoopbackServer server;
    server.answer("/a", LoopbackResponse::bytes("image/JPEG; charset=binary", allBytes()));
    WebSession session;
    const WebReply reply = test::fetch(session, server.url(u"/a"_s));
    EXPECT_EQ(reply.body, allBytes());
    EXPECT_EQ(reply.contentType, u"image/JPEG; charset=binary"_s);
}

TEST(WebSession, BringsAReplyWithoutAType)
{
    LoopbackServer server;
    server.answer("/", LoopbackResponse{.body = "GIF89a"});
    WebSession session;
    const WebReply reply = test::fetch(session, server.url(u"/"_s));
    EXPECT_EQ(reply, (WebReply{.body = "GIF89a", .contentType = {}, .isKnownWhole = true}));
}

TEST(WebSession, BringsTheBytesOfAFile)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"cover.png"_s);
    test::writeFile(path, allBytes());
    LoopbackServer server;
    server.answer("/front", LoopbackResponse::file("image/png", path));
    WebSession session;
    EXPECT_EQ(test::fetch(session, server.url(u"/front"_s)).body, allBytes());
}

TEST(WebSession, TakesAnAnswerWithoutContentsForASuccess)
{
    LoopbackServer server;
    server.answer("/", LoopbackResponse::withStatus(204));
    WebSession session;
    EXPECT_EQ(test::fetch(session, server.url(u"/"_s)), WebReply());
}

TEST(WebSession, SendsTheHeadersThatItIsGiven)
{
    LoopbackServer server;
    server.answer("/", LoopbackResponse::json("{}"));
    WebSession session;
    const WebRequest request = {.url = server.url(u"/"_s),
                                .userAgent = u"Tonearm/2.3 ( https://example.org/x )"_s,
                                .accept = u"image/*"_s};
    test::await(session.data(request, MetadataSource::musicBrainz, maximumJsonBytes, {}));
    const auto asked = server.requests().value(0);
    EXPECT_EQ(asked.method, "GET");
    EXPECT_EQ(asked.header("User-Agent"), "Tonearm/2.3 ( https://example.org/x )");
    EXPECT_EQ(asked.header("Accept"), "image/*");
}

TEST(WebSession, SendsTheUrlAsItIsEncoded)
{
    LoopbackServer server;
    server.answerWith([](const auto &) { return LoopbackResponse::json("{}"); });
    WebSession session;
    const QByteArray target =
        "/AC%2FDC/%22%25%2B%3F%23%5C/%C3%B6?query=artist%3A%22a%26b%3Dc%22%20%2B&x=%7C%5B%5D";
    test::fetch(session, QUrl(server.origin() + QString::fromLatin1(target)));
    EXPECT_EQ(server.requests().value(0).target, target);
}

TEST(WebSession, UnpacksWhatIsPacked)
{
    LoopbackServer server;
    server.answer("/", LoopbackResponse::json(allBytes()).gzipped());
    server.answer("/chunked", LoopbackResponse::json(allBytes()).gzipped().inPieces(1000, 0ms).chunked());
    WebSession session;
    EXPECT_EQ(test::fetch(session, server.url(u"/"_s)).body, allBytes());
    EXPECT_EQ(test::fetch(session, server.url(u"/chunked"_s)).body, allBytes());
    EXPECT_EQ(server.requests().value(0).header("Accept-Encoding"), "gzip");
}

TEST(WebSession, PutsASlowReplyTogether)
{
    LoopbackServer server;
    const QByteArray body = allBytes().first(300);
    server.answer("/", LoopbackResponse::json(body).after(20ms).inPieces(1, 0ms));
    server.answer("/chunked", LoopbackResponse::json(body).inPieces(1, 0ms).chunked());
    WebSession session;
    EXPECT_EQ(test::fetch(session, server.url(u"/"_s)).body, body);
    EXPECT_EQ(test::fetch(session, server.url(u"/chunked"_s)).body, body);
}

TEST(WebSession, TellsAFailureByItsStatus)
{
    constexpr auto discogs = MetadataSource::discogs;
    EXPECT_EQ(failureOfStatus(401), MetadataServiceError::unauthorized(discogs));
    EXPECT_EQ(failureOfStatus(403), MetadataServiceError::unauthorized(discogs));
    EXPECT_EQ(failureOfStatus(429), MetadataServiceError::rateLimited(discogs));
    EXPECT_EQ(failureOfStatus(503), MetadataServiceError::rateLimited(discogs));
    for (const int status : {304, 400, 404, 405, 407, 409, 410, 418, 500, 501, 502, 599})
        EXPECT_EQ(failureOfStatus(status), MetadataServiceError::httpFailure(discogs, status));
}

TEST(WebSession, NamesTheServiceInItsErrors)
{
    LoopbackServer server;
    WebSession session;
    auto transfer =
        session.data(test::requestFor(server.url(u"/"_s)), MetadataSource::musicBrainz, maximumJsonBytes, {});
    EXPECT_EQ(test::awaitError<MetadataServiceError>(std::move(transfer)),
              MetadataServiceError::httpFailure(MetadataSource::musicBrainz, 404));
}

TEST(WebSession, AsksOnceForEachReply)
{
    LoopbackServer server;
    server.answer("/", LoopbackResponse::json("{}"));
    server.answer("/chunked", LoopbackResponse::json("{}").chunked());
    WebSession session;
    for (int round = 0; round < 20; ++round) {
        EXPECT_EQ(test::fetch(session, server.url(u"/"_s)).body, "{}");
        EXPECT_EQ(test::fetch(session, server.url(u"/chunked"_s)).body, "{}");
    }
    EXPECT_EQ(server.requests().size(), 40);
}

TEST(WebSession, FetchesSeveralAtOnce)
{
    LoopbackServer server;
    server.answer("/slow", LoopbackResponse::json("slow").after(500ms));
    server.answer("/quick", LoopbackResponse::json("quick"));
    WebSession session;
    QByteArrayList ended;
    const auto fetch = [&](const QString &target) -> QCoro::Task<> {
        const WebReply reply = co_await session.data(test::requestFor(server.url(target)),
                                                     MetadataSource::discogs, maximumJsonBytes, {});
        ended.append(reply.body);
    };
    auto slow = fetch(u"/slow"_s);
    auto quick = fetch(u"/quick"_s);
    test::await(std::move(slow));
    test::await(std::move(quick));
    EXPECT_EQ(ended, (QByteArrayList{"quick", "slow"}));
}

TEST(WebSession, ResumesItsCallerOnTheCallersThread)
{
    LoopbackServer server;
    server.answer("/", LoopbackResponse::json("{}"));
    WebSession session;
    QThread *const caller = QThread::currentThread();
    const auto flow = [&]() -> QCoro::Task<bool> {
        co_await session.data(test::requestFor(server.url(u"/"_s)), MetadataSource::discogs, maximumJsonBytes,
                              {});
        co_return QThread::currentThread() == caller;
    };
    EXPECT_TRUE(test::await(flow()));
}

TEST(WebSession, NeedsNoServerToBeMadeAndDropped)
{
    const WebSession session;
}

TEST(WebSession, OpensNoPlaceOnThisMachine)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"secret.json"_s);
    test::writeFile(path, "{}");
    WebSession session;
    const auto failure = MetadataServiceError::malformedResponse(MetadataSource::discogs,
                                                                 u"The reply wasn't an HTTP response."_s);
    EXPECT_EQ(test::fetchFailure(session, QUrl::fromLocalFile(path)), failure);
    EXPECT_EQ(test::fetchFailure(session, QUrl(path)), failure);
    EXPECT_EQ(test::fetchFailure(session, QUrl(u"data:application/json,{}"_s)), failure);
    EXPECT_EQ(test::fetchFailure(session, QUrl(u"qrc:/a.json"_s)), failure);
    EXPECT_EQ(test::fetchFailure(session, QUrl()), failure);
}

TEST(WebSession, TellsThatItDoesntKnowAScheme)
{
    WebSession session;
    EXPECT_EQ(test::networkDetail(test::fetchFailure(session, QUrl(u"gopher://127.0.0.1/a"_s))),
              u"Protocol \"gopher\" is unknown."_s);
}

} // namespace tonearm
