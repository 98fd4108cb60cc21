// SPDX-License-Identifier: GPL-3.0-or-later
#include "web/UserAgent.h"

#include "helpers/Printing.h"

#include <gtest/gtest.h>

#include <QUrl>

namespace tonearm {

using namespace Qt::StringLiterals;

TEST(UserAgent, TellsNameAndVersion)
{
    EXPECT_EQ(userAgent(u"2.3"_s), u"Tonearm/2.3"_s);
}

TEST(UserAgent, TellsAContact)
{
    EXPECT_EQ(userAgent(u"2.3"_s, u"https://example.org/x"_s), u"Tonearm/2.3 ( https://example.org/x )"_s);
}

TEST(UserAgent, HasAVersionInAnyCase)
{
    EXPECT_EQ(userAgent(u""_s), u"Tonearm/1.0"_s);
    EXPECT_EQ(userAgent({}, u"https://example.org/x"_s), u"Tonearm/1.0 ( https://example.org/x )"_s);
}

TEST(UserAgent, HasALinkForAContact)
{
    const QUrl link(contactLink(), QUrl::StrictMode);
    EXPECT_EQ(link.scheme(), u"https"_s);
    EXPECT_NE(link.host(), u""_s);
}

} // namespace tonearm
