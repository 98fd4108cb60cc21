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

TEST(WebSessionPrivacy, KeepsNoCookies)
{
    LoopbackServer server;
    server.answer("/", LoopbackResponse::json("{}").with("Set-Cookie", "who=you; Path=/"));
    server.answer("/old", LoopbackResponse::redirect(302, "/").with("Set-Cookie", "who=you; Path=/"));
    WebSession session;
    for (const QString &target : {u"/"_s, u"/"_s, u"/old"_s})
        test::fetch(session, server.url(target));
    const auto requests = server.requests();
    ASSERT_EQ(requests.size(), 4);
    for (const auto &request : requests)
        EXPECT_FALSE(request.hasHeader("Cookie")) << request.target.toStdString();
}

TEST(WebSessionPrivacy, SendsNoCredentials)
{
    LoopbackServer server;
    server.answer("/", LoopbackResponse::withStatus(401).with("WWW-Authenticate", "Basic realm=\"x\""));
    WebSession session;
    QUrl url = server.url(u"/"_s);
    url.setUserInfo(u"name:word"_s);
    EXPECT_EQ(test::fetchFailure(session, url), MetadataServiceError::unauthorized(MetadataSource::discogs));
    ASSERT_EQ(server.requests().size(), 1);
    EXPECT_FALSE(server.requests().value(0).hasHeader("Authorization"));
}

TEST(WebSessionPrivacy, AsksAgainForWhatMayBeCached)
{
    LoopbackServer server;
    server.answerInTurn("/", {LoopbackResponse::json("1").with("Cache-Control", "max-age=3600"),
                              LoopbackResponse::json("2")});
    WebSession session;
    EXPECT_EQ(test::fetch(session, server.url(u"/"_s)).body, "1");
    EXPECT_EQ(test::fetch(session, server.url(u"/"_s)).body, "2");
}

TEST(WebSessionPrivacy, SpeaksToAServerWithATrustedCertificate)
{
    const auto certificate = test::TestCertificate::make();
    const test::TrustedCertificate trusted(certificate);
    LoopbackServer server(certificate);
    server.answer("/", LoopbackResponse::json("{}"));
    WebSession session;
    EXPECT_EQ(test::fetch(session, server.url(u"/"_s)).body, "{}");
}

TEST(WebSessionPrivacy, RefusesACertificateThatNobodyTrusts)
{
    LoopbackServer server(test::TestCertificate::make());
    server.answer("/", LoopbackResponse::json("{}"));
    WebSession session;
    const QString detail = test::networkDetail(test::fetchFailure(session, server.url(u"/"_s)));
    EXPECT_TRUE(detail.startsWith(u"SSL handshake failed"_s)) << detail.toStdString();
    EXPECT_EQ(server.requests().size(), 0);
}

} // namespace tonearm
