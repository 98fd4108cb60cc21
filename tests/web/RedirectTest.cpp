// SPDX-License-Identifier: GPL-3.0-or-later
#include "web/Redirect.h"

#include "helpers/Printing.h"

#include <gtest/gtest.h>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

const QUrl asked(u"https://example.org/release/1?a=b"_s);

std::optional<QUrl> found(const QByteArray &location)
{
    return redirectTarget(asked, 302, location);
}

std::optional<QString> complaint(const QString &from, const QString &to)
{
    return redirectRefusal(QUrl(from), QUrl(to));
}

const QString notOnTheWeb = u"The service redirects to an address that isn't on the web."_s;
const QString withoutEncryption = u"The service redirects to an address without encryption."_s;

} // namespace

TEST(Redirect, IsToldByTheStatus)
{
    for (const int status : {301, 302, 303, 307, 308})
        EXPECT_EQ(redirectTarget(asked, status, "/x"), QUrl(u"https://example.org/x"_s)) << status;
    for (const int status : {200, 201, 300, 304, 305, 306, 404})
        EXPECT_EQ(redirectTarget(asked, status, "/x"), std::nullopt) << status;
}

TEST(Redirect, NeedsATarget)
{
    EXPECT_EQ(found(""), std::nullopt);
}

TEST(Redirect, ResolvesItsTarget)
{
    EXPECT_EQ(found("https://example.com/x%2Fy?q=%26"), QUrl(u"https://example.com/x%2Fy?q=%26"_s));
    EXPECT_EQ(found("//example.com/x"), QUrl(u"https://example.com/x"_s));
    EXPECT_EQ(found("2"), QUrl(u"https://example.org/release/2"_s));
    EXPECT_EQ(found("?c"), QUrl(u"https://example.org/release/1?c"_s));
}

TEST(Redirect, MayLeadToTheWeb)
{
    EXPECT_EQ(complaint(u"https://a.org/"_s, u"https://b.org/"_s), std::nullopt);
    EXPECT_EQ(complaint(u"http://a.org/"_s, u"https://b.org/"_s), std::nullopt);
    EXPECT_EQ(complaint(u"http://a.org/"_s, u"http://b.org/"_s), std::nullopt);
}

TEST(Redirect, MayNotLeadFromHttpsToHttp)
{
    EXPECT_EQ(complaint(u"https://a.org/"_s, u"http://a.org/"_s), withoutEncryption);
}

TEST(Redirect, MayNotLeadElsewhere)
{
    for (const QString &place : {u"file:///etc/hostname"_s, u"data:,a"_s, u"qrc:/a"_s, u"ftp://a.org/"_s,
                                 u"https:///a"_s, u"mailto:a@a.org"_s, u"http://[bad"_s, u""_s}) {
        EXPECT_EQ(complaint(u"http://a.org/"_s, place), notOnTheWeb) << place.toStdString();
        EXPECT_EQ(complaint(u"https://a.org/"_s, place), notOnTheWeb) << place.toStdString();
    }
}

} // namespace tonearm
