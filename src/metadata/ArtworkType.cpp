// SPDX-License-Identifier: GPL-3.0-or-later
#include "metadata/ArtworkType.h"

#include "artwork/CoverArtError.h"
#include "artwork/JpegMarkers.h"
#include "artwork/PngFile.h"

namespace tonearm {

using namespace Qt::StringLiterals;

QString artworkExtension(const QString &contentType, QByteArrayView data)
{
    const QString type = contentType.toLower();
    if (type.contains(u"jpeg"_s) || type.contains(u"jpg"_s))
        return u"jpg"_s;
    if (type.contains(u"png"_s))
        return u"png"_s;
    if (!type.isEmpty())
        throw CoverArtError::unsupportedImageType(type);
    if (data.startsWith(jpegSignature))
        return u"jpg"_s;
    if (data.startsWith(pngSignatureStart))
        return u"png"_s;
    throw CoverArtError::unsupportedImageType(u"an unrecognised format"_s);
}

} // namespace tonearm
