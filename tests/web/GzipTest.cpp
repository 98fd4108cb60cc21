// SPDX-License-Identifier: GPL-3.0-or-later
#include "web/Gzip.h"

#include "helpers/LoopbackResponse.h"

#include <gtest/gtest.h>

namespace tonearm {

namespace {

constexpr qint64 plenty = 1'000'000;

QByteArray someText()
{
    QByteArray text;
    for (int index = 0; index < 50'000; ++index)
        text += QByteArray::number(index);
    return text;
}

} // namespace

TEST(Gzip, UnpacksWhatWasPacked)
{
    for (const QByteArray &text : {QByteArray(), QByteArray("{}"), QByteArray(200'000, 'a'), someText()})
        EXPECT_EQ(unpackedGzip(test::gzip(text), plenty), text);
}

TEST(Gzip, TakesNoPartForTheWhole)
{
    const QByteArray packed = test::gzip("{\"title\": \"a\"}");
    for (qsizetype size = 0; size < packed.size(); ++size)
        EXPECT_EQ(unpackedGzip(packed.first(size), plenty), std::nullopt) << size;
}

TEST(Gzip, NoticesADamage)
{
    const QByteArray packed = test::gzip("{\"title\": \"a\"}");
    // The head's own fields aside: the magic bytes, the packed data, the checksum and the length.
    for (const qsizetype place : {0, 1, 2, 14, 20, int(packed.size()) - 5, int(packed.size()) - 1}) {
        QByteArray damaged = packed;
        damaged[place] = static_cast<char>(damaged.at(place) ^ 0x55);
        EXPECT_EQ(unpackedGzip(damaged, plenty), std::nullopt) << place;
    }
    EXPECT_EQ(unpackedGzip("{\"title\": \"a\"}", plenty), std::nullopt);
}

TEST(Gzip, UnpacksEveryMember)
{
    const QByteArray nothing = test::gzip({});
    const QByteArray packed = test::gzip("{\"title\": ") + nothing + test::gzip(someText()) + test::gzip("}");
    EXPECT_EQ(unpackedGzip(packed, plenty), "{\"title\": " + someText() + "}");
    EXPECT_EQ(unpackedGzip(packed, 3), "{\"ti");
    EXPECT_EQ(unpackedGzip(packed.chopped(1), plenty), std::nullopt);
}

TEST(Gzip, NoticesWhatIsNoMember)
{
    const QByteArray packed = test::gzip("{}");
    for (const QByteArray &rest :
         {QByteArray("\0}", 2), QByteArray("}"), QByteArray("\x1f\x8b"), packed.first(9)})
        EXPECT_EQ(unpackedGzip(packed + rest, plenty), std::nullopt) << rest.toHex().constData();
}

TEST(Gzip, TakesZerosBehindTheLastMemberForPadding)
{
    const QByteArray packed = test::gzip("{}");
    for (const qsizetype size : {1, 511})
        EXPECT_EQ(unpackedGzip(packed + QByteArray(size, '\0'), plenty), "{}") << size;
}

TEST(Gzip, EndsOneByteBeyondTheLimit)
{
    const QByteArray packed = test::gzip(QByteArray(200'000, 'a'));
    EXPECT_EQ(unpackedGzip(packed, 200'000)->size(), 200'000);
    EXPECT_EQ(unpackedGzip(packed, 199'999)->size(), 200'000);
    EXPECT_EQ(unpackedGzip(packed, 1'000)->size(), 1'001);
    EXPECT_EQ(unpackedGzip(packed, 0)->size(), 1);
}

} // namespace tonearm
