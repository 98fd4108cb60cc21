// SPDX-License-Identifier: GPL-3.0-or-later
#include "web/WebSession.h"

#include "helpers/Await.h"
#include "helpers/Contents.h"
#include "helpers/LoopbackServer.h"
#include "helpers/Printing.h"
#include "web/WebRequests.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>

namespace tonearm {

using namespace Qt::StringLiterals;
using test::LoopbackResponse;
using test::LoopbackServer;

namespace {

/// A server that sends everything on to the next number, "/1" to "/2" and so on, up to the last one.
LoopbackResponse nextOf(const test::LoopbackRequest &request, int last)
{
    const int number = request.path().mid(1).toInt();
    return number == last ? LoopbackResponse::json("{}")
                          : LoopbackResponse::redirect(302, "/" + QByteArray::number(number + 1));
}

} // namespace

TEST(WebSessionRedirect, FollowsEachKind)
{
    for (const int status : {301, 302, 303, 307, 308}) {
        LoopbackServer server;
        server.answer("/old", LoopbackResponse::redirect(status, "/new?a=b%2F"));
        server.answer("/new", LoopbackResponse::bytes("image/png", "picture"));
        WebSession session;
        const WebReply reply = test::fetch(session, server.url(u"/old"_s));
        EXPECT_EQ(reply, (WebReply{.body = "picture", .contentType = u"image/png"_s, .isKnownWhole = true}))
            << status;
        EXPECT_EQ(server.requests().value(1).target, "/new?a=b%2F");
    }
}

TEST(WebSessionRedirect, FollowsToAnotherServerWithTheSameHeaders)
{
    LoopbackServer other;
    other.answer("/front.jpg", LoopbackResponse::bytes("image/jpeg", "picture"));
    LoopbackServer server;
    server.answer("/front", LoopbackResponse::redirect(307, other.origin().toLatin1() + "/front.jpg"));
    WebSession session;
    const WebRequest request = {
        .url = server.url(u"/front"_s), .userAgent = u"Tonearm/2.3"_s, .accept = u"image/*"_s};
    const auto reply = test::await(session.data(request, MetadataSource::musicBrainz, 100, {}));
    EXPECT_EQ(reply.body, "picture");
    EXPECT_EQ(other.requests().value(0).header("User-Agent"), "Tonearm/2.3");
    EXPECT_EQ(other.requests().value(0).header("Accept"), "image/*");
}

TEST(WebSessionRedirect, FollowsAChainOfTwenty)
{
    LoopbackServer server;
    server.answerWith([](const auto &request) { return nextOf(request, 20); });
    WebSession session;
    EXPECT_EQ(test::fetch(session, server.url(u"/0"_s)).body, "{}");
}

TEST(WebSessionRedirect, GivesUpOnALongerChain)
{
    LoopbackServer server;
    server.answerWith([](const auto &request) { return nextOf(request, 21); });
    WebSession session;
    EXPECT_EQ(test::networkDetail(test::fetchFailure(session, server.url(u"/0"_s))),
              u"Too many redirects."_s);
}

TEST(WebSessionRedirect, GivesUpOnALoop)
{
    LoopbackServer server;
    server.answer("/a", LoopbackResponse::redirect(301, "/b"));
    server.answer("/b", LoopbackResponse::redirect(301, "/a"));
    WebSession session;
    EXPECT_EQ(test::networkDetail(test::fetchFailure(session, server.url(u"/a"_s))),
              u"Too many redirects."_s);
}

TEST(WebSessionRedirect, TellsTheStatusAtTheEndOfAChain)
{
    LoopbackServer server;
    server.answer("/a", LoopbackResponse::redirect(302, "/gone"));
    WebSession session;
    EXPECT_EQ(test::fetchFailure(session, server.url(u"/a"_s)),
              MetadataServiceError::httpFailure(MetadataSource::discogs, 404));
}

TEST(WebSessionRedirect, LeadsToNoFile)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"secret.json"_s);
    test::writeFile(path, "secret");
    LoopbackServer server;
    server.answer("/", LoopbackResponse::redirect(302, QUrl::fromLocalFile(path).toEncoded()));
    WebSession session;
    EXPECT_EQ(test::networkDetail(test::fetchFailure(session, server.url(u"/"_s))),
              u"The service redirects to an address that isn't on the web."_s);
}

TEST(WebSessionRedirect, TellsARedirectToNowhereByItsStatus)
{
    LoopbackServer server;
    server.answer("/", LoopbackResponse::withStatus(302));
    WebSession session;
    EXPECT_EQ(test::fetchFailure(session, server.url(u"/"_s)),
              MetadataServiceError::httpFailure(MetadataSource::discogs, 302));
}

TEST(WebSessionRedirect, FollowsFromHttpToHttps)
{
    const auto certificate = test::TestCertificate::make();
    const test::TrustedCertificate trusted(certificate);
    LoopbackServer secure(certificate);
    secure.answer("/", LoopbackResponse::json("{}"));
    LoopbackServer plain;
    plain.answer("/", LoopbackResponse::redirect(301, secure.origin().toLatin1() + "/"));
    WebSession session;
    EXPECT_EQ(test::fetch(session, plain.url(u"/"_s)).body, "{}");
}

TEST(WebSessionRedirect, NeverLeadsFromHttpsToHttp)
{
    const auto certificate = test::TestCertificate::make();
    const test::TrustedCertificate trusted(certificate);
    LoopbackServer plain;
    plain.answer("/", LoopbackResponse::json("{}"));
    LoopbackServer secure(certificate);
    secure.answer("/", LoopbackResponse::redirect(302, plain.origin().toLatin1() + "/"));
    WebSession session;
    EXPECT_EQ(test::networkDetail(test::fetchFailure(session, secure.url(u"/"_s))),
              u"The service redirects to an address without encryption."_s);
    EXPECT_EQ(plain.requests().size(), 0);
}

} // namespace tonearm
