// SPDX-License-Identifier: GPL-3.0-or-later
#include "web/ServiceURL.h"

#include "helpers/Await.h"
#include "helpers/Printing.h"
#include "web/MetadataServiceError.h"

#include <gtest/gtest.h>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

const QString host = u"https://musicbrainz.org"_s;

/// What goes over the wire behind the host.
QByteArray target(const QStringList &segments, const QList<QueryPair> &query = {})
{
    return serviceURL(host, segments, query).toEncoded().mid(host.size());
}

std::optional<MetadataServiceError> refusal(const QString &base, const QStringList &segments,
                                            const QList<QueryPair> &query = {})
{
    return test::errorOf<MetadataServiceError>([&] { return serviceURL(base, segments, query); });
}

const QString halfCharacter = u"a"_s + QChar(0xd83c) + u"b"_s;

} // namespace

TEST(ServiceURL, JoinsSegmentsAndQueryInTheirOrder)
{
    EXPECT_EQ(serviceURL(host, {u"ws"_s, u"2"_s, u"release"_s},
                         {{u"query"_s, u"a b"_s}, {u"fmt"_s, u"json"_s}, {u"limit"_s, u"25"_s}}),
              QUrl(u"https://musicbrainz.org/ws/2/release?query=a%20b&fmt=json&limit=25"_s));
}

TEST(ServiceURL, HasNoQuestionMarkWithoutAQuery)
{
    EXPECT_EQ(target({u"releases"_s, u"249504"_s}), "/releases/249504");
    EXPECT_EQ(target({}), "");
}

TEST(ServiceURL, KeepsABaseWithAPortAndAPath)
{
    EXPECT_EQ(serviceURL(u"http://127.0.0.1:8080/api"_s, {u"a"_s}), QUrl(u"http://127.0.0.1:8080/api/a"_s));
}

TEST(ServiceURL, LeavesTheUnreservedCharactersAlone)
{
    const QString unreserved = u"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-._~"_s;
    ASSERT_EQ(unreserved.size(), 66);
    EXPECT_EQ(target({unreserved}, {{u"q"_s, unreserved}}),
              QString(u'/' + unreserved + u"?q="_s + unreserved).toLatin1());
}

TEST(ServiceURL, PercentEncodesEveryOtherCharacterOfAscii)
{
    for (int code = 0; code < 128; ++code) {
        const QString text(1, QChar(static_cast<char16_t>(code)));
        if (QChar(text[0]).isLetterOrNumber() || u"-._~"_s.contains(text))
            continue;
        const QByteArray encoded = "%" + QByteArray::number(code, 16).rightJustified(2, '0').toUpper();
        EXPECT_EQ(target({text}, {{u"q"_s, text}}), "/" + encoded + "?q=" + encoded);
    }
}

TEST(ServiceURL, KeepsASlashWithinItsValue)
{
    EXPECT_EQ(target({u"AC/DC"_s}, {{u"query"_s, u"AC/DC"_s}}), "/AC%2FDC?query=AC%2FDC");
}

TEST(ServiceURL, EncodesPlusSignsAndBlanks)
{
    EXPECT_EQ(target({}, {{u"inc"_s, u"artists+labels recordings"_s}}), "?inc=artists%2Blabels%20recordings");
}

TEST(ServiceURL, EncodesAPercentSignThatLooksLikeAnEncoding)
{
    EXPECT_EQ(target({u"100%25"_s}, {{u"q"_s, u"%41"_s}}), "/100%2525?q=%2541");
}

TEST(ServiceURL, EncodesOtherScriptsAsUtf8)
{
    EXPECT_EQ(target({u"Björk"_s}, {{u"q"_s, u"音🎵"_s}}), "/Bj%C3%B6rk?q=%E9%9F%B3%F0%9F%8E%B5");
}

TEST(ServiceURL, TakesAnEmptyValueButNoEmptySegment)
{
    EXPECT_EQ(target({u"a"_s}, {{u"q"_s, u""_s}}), "/a?q=");
    EXPECT_EQ(refusal(host, {u"a"_s, u""_s}), MetadataServiceError::invalidQuery(u""_s));
}

TEST(ServiceURL, RefusesHalfACharacter)
{
    EXPECT_EQ(refusal(host, {halfCharacter}), MetadataServiceError::invalidQuery(halfCharacter));
    EXPECT_EQ(refusal(host, {}, {{u"q"_s, halfCharacter}}),
              MetadataServiceError::invalidQuery(halfCharacter));
}

TEST(ServiceURL, RefusesWhatIsNoUrlAsAWhole)
{
    EXPECT_EQ(refusal(u"https://[bad"_s, {u"a"_s}, {{u"q"_s, u"b"_s}}),
              MetadataServiceError::invalidQuery(u"https://[bad/a?q=b"_s));
    EXPECT_EQ(refusal(u""_s, {}), MetadataServiceError::invalidQuery(u""_s));
}

} // namespace tonearm
