// SPDX-License-Identifier: GPL-3.0-or-later
#include "web/SystemProxies.h"

#include "helpers/LoopbackServer.h"
#include "web/WebRequests.h"

#include <gtest/gtest.h>

namespace tonearm {

using namespace Qt::StringLiterals;
using test::LoopbackResponse;
using test::LoopbackServer;

namespace {

/// Sets a variable of the environment for as long as it lives.
class Variable
{
public:
    Variable(const char *name, const QByteArray &value)
        : m_name(name)
        , m_before(qgetenv(name))
    {
        qputenv(name, value);
    }

    ~Variable()
    {
        if (m_before.isNull())
            qunsetenv(m_name);
        else
            qputenv(m_name, m_before);
    }

    Variable(const Variable &) = delete;
    Variable &operator=(const Variable &) = delete;

private:
    const char *m_name;
    QByteArray m_before;
};

} // namespace

TEST(SystemProxies, StandBetweenThisMachineAndOthers)
{
    LoopbackServer proxy;
    proxy.answerWith([](const auto &) { return LoopbackResponse::json("{}"); });
    const Variable address("http_proxy", proxy.origin().toLatin1());
    const Variable exceptions("no_proxy", "");
    WebSession session;
    EXPECT_EQ(test::fetch(session, QUrl(u"http://tonearm.invalid/a?b=c"_s)).body, "{}");
    EXPECT_EQ(proxy.requests().value(0).target, "http://tonearm.invalid/a?b=c");
}

TEST(SystemProxies, StayOutOfTheWayToThisMachine)
{
    LoopbackServer proxy;
    LoopbackServer server;
    server.answer("/", LoopbackResponse::json("{}"));
    const Variable address("http_proxy", proxy.origin().toLatin1());
    const Variable exceptions("no_proxy", "");
    WebSession session;
    EXPECT_EQ(test::fetch(session, server.url(u"/"_s)).body, "{}");
    EXPECT_EQ(proxy.requests().size(), 0);
}

} // namespace tonearm
