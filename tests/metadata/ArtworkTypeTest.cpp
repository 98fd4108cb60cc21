// SPDX-License-Identifier: GPL-3.0-or-later
#include "metadata/ArtworkType.h"

#include "artwork/CoverArtError.h"
#include "helpers/Await.h"
#include "helpers/Printing.h"

#include <gtest/gtest.h>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

std::optional<CoverArtError> refusalOf(const QString &contentType, const QByteArray &data)
{
    return test::errorOf<CoverArtError>([&] { return artworkExtension(contentType, data); });
}

} // namespace

TEST(ArtworkType, GoesByTheContentType)
{
    EXPECT_EQ(artworkExtension(u"image/jpeg"_s, "anything"), u"jpg"_s);
    EXPECT_EQ(artworkExtension(u"image/jpeg; charset=binary"_s, {}), u"jpg"_s);
    EXPECT_EQ(artworkExtension(u"image/JPG"_s, "\x89PNG"), u"jpg"_s);
    EXPECT_EQ(artworkExtension(u"IMAGE/PNG"_s, "\xff\xd8\xff"), u"png"_s);
}

TEST(ArtworkType, RefusesOtherContentTypesWhateverTheBytes)
{
    EXPECT_EQ(refusalOf(u"text/html"_s, "\xff\xd8\xff"), CoverArtError::unsupportedImageType(u"text/html"_s));
    EXPECT_EQ(refusalOf(u"Image/WebP"_s, "\x89PNG"), CoverArtError::unsupportedImageType(u"image/webp"_s));
    EXPECT_EQ(refusalOf(u" "_s, "\x89PNG"), CoverArtError::unsupportedImageType(u" "_s));
}

TEST(ArtworkType, LooksAtTheBytesWithoutAContentType)
{
    EXPECT_EQ(artworkExtension({}, "\xff\xd8\xff"), u"jpg"_s);
    EXPECT_EQ(artworkExtension({}, "\xff\xd8\xff\xe0 more"), u"jpg"_s);
    EXPECT_EQ(artworkExtension({}, "\x89PNG"), u"png"_s);
    EXPECT_EQ(artworkExtension({}, "\x89PNG\r\n"), u"png"_s);
}

TEST(ArtworkType, RefusesBytesThatItDoesNotKnow)
{
    for (const QByteArray &data : {QByteArray("GIF89a..."), QByteArray("\xff\xd8"), QByteArray("\x89PN"),
                                   QByteArray("PNG"), QByteArray(" \xff\xd8\xff"), QByteArray()}) {
        EXPECT_EQ(refusalOf({}, data), CoverArtError::unsupportedImageType(u"an unrecognised format"_s))
            << data.constData();
    }
}

} // namespace tonearm
