// SPDX-License-Identifier: GPL-3.0-or-later
#include "artwork/CoverArtError.h"

#include "support/PathText.h"

#include <utility>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

QString suggestionWithoutArtworkAt(MetadataSource source)
{
    switch (source) {
    case MetadataSource::musicBrainz:
        return u"Try a Discogs result instead, or drag in your own image."_s;
    case MetadataSource::discogs:
        return u"Drag in your own image, or try a MusicBrainz result."_s;
    }
    Q_UNREACHABLE();
}

} // namespace

CoverArtError::CoverArtError(Kind errorKind)
    : kind(errorKind)
{
}

CoverArtError CoverArtError::unreadableImage(QUrl url)
{
    CoverArtError error(Kind::unreadableImage);
    error.url = std::move(url);
    return error;
}

CoverArtError CoverArtError::couldNotShrink(QUrl url)
{
    CoverArtError error(Kind::couldNotShrink);
    error.url = std::move(url);
    return error;
}

CoverArtError CoverArtError::unsupportedImageType(QString type)
{
    CoverArtError error(Kind::unsupportedImageType);
    error.type = std::move(type);
    return error;
}

CoverArtError CoverArtError::noArtworkAvailable(MetadataSource source)
{
    CoverArtError error(Kind::noArtworkAvailable);
    error.source = source;
    return error;
}

CoverArtError CoverArtError::noReleaseSelected()
{
    return CoverArtError(Kind::noReleaseSelected);
}

QString CoverArtError::description() const
{
    switch (kind) {
    case Kind::unreadableImage:
        return u'"' + lastPathComponent(url) + u"\" couldn't be read as an image."_s;
    case Kind::couldNotShrink:
        return u'"' + lastPathComponent(url) + u"\" couldn't be re-encoded to fit the size limit."_s;
    case Kind::unsupportedImageType:
        return u"The artwork came back as "_s + type + u", which FLAC can't carry."_s;
    case Kind::noArtworkAvailable:
        return displayName(source.value()) + u" has no cover art for this release."_s;
    case Kind::noReleaseSelected:
        return u"No release is selected."_s;
    }
    Q_UNREACHABLE();
}

std::optional<QString> CoverArtError::recoverySuggestion() const
{
    switch (kind) {
    case Kind::unreadableImage:
    case Kind::couldNotShrink:
    case Kind::unsupportedImageType:
        return u"Try a different JPEG or PNG."_s;
    case Kind::noArtworkAvailable:
        return suggestionWithoutArtworkAt(source.value());
    case Kind::noReleaseSelected:
        return u"Search for the album and choose a release first."_s;
    }
    Q_UNREACHABLE();
}

bool CoverArtError::operator==(const CoverArtError &other) const
{
    return kind == other.kind && url == other.url && type == other.type && source == other.source;
}

} // namespace tonearm
