// SPDX-License-Identifier: GPL-3.0-or-later
#include "web/MetadataServiceError.h"

#include <utility>

namespace tonearm {

using namespace Qt::StringLiterals;

MetadataServiceError::MetadataServiceError(Kind errorKind, std::optional<MetadataSource> service,
                                           QString words, int status)
    : kind(errorKind)
    , source(service)
    , text(std::move(words))
    , statusCode(status)
{
}

MetadataServiceError MetadataServiceError::invalidQuery(QString text)
{
    return {Kind::invalidQuery, std::nullopt, std::move(text), 0};
}

MetadataServiceError MetadataServiceError::unauthorized(MetadataSource source)
{
    return {Kind::unauthorized, source, {}, 0};
}

MetadataServiceError MetadataServiceError::rateLimited(MetadataSource source)
{
    return {Kind::rateLimited, source, {}, 0};
}

MetadataServiceError MetadataServiceError::httpFailure(MetadataSource source, int statusCode)
{
    return {Kind::httpFailure, source, {}, statusCode};
}

MetadataServiceError MetadataServiceError::malformedResponse(MetadataSource source, QString detail)
{
    return {Kind::malformedResponse, source, std::move(detail), 0};
}

MetadataServiceError MetadataServiceError::networkFailure(MetadataSource source, QString detail)
{
    return {Kind::networkFailure, source, std::move(detail), 0};
}

MetadataServiceError MetadataServiceError::releaseNotFound(MetadataSource source, QString id)
{
    return {Kind::releaseNotFound, source, std::move(id), 0};
}

bool MetadataServiceError::saysNotFound() const
{
    constexpr int notFound = 404;
    return kind == Kind::httpFailure && statusCode == notFound;
}

QString MetadataServiceError::description() const
{
    const QString name = source ? displayName(*source) : QString();
    switch (kind) {
    case Kind::invalidQuery:
        return u'"' + text + u"\" couldn't be turned into a valid search request."_s;
    case Kind::unauthorized:
        return name + u" rejected the request as unauthorized."_s;
    case Kind::rateLimited:
        return name + u" is rate-limiting requests right now."_s;
    case Kind::httpFailure:
        return name + u" returned HTTP status "_s + QString::number(statusCode) + u'.';
    case Kind::malformedResponse:
        return name + u" returned data that couldn't be read. "_s + text;
    case Kind::networkFailure:
        return u"Couldn't reach "_s + name + u". "_s + text;
    case Kind::releaseNotFound:
        return name + u" has no release with ID "_s + text + u'.';
    }
    Q_UNREACHABLE();
}

std::optional<QString> MetadataServiceError::recoverySuggestion() const
{
    switch (kind) {
    case Kind::invalidQuery:
        return u"Check the artist and album text for stray punctuation."_s;
    case Kind::unauthorized:
        return displayName(*source) +
               u" searches need no credentials, so this is unexpected. Try again shortly."_s;
    case Kind::rateLimited:
        return u"Wait a few seconds and search again."_s;
    case Kind::httpFailure:
    case Kind::malformedResponse:
        return u"The service may be having trouble. Try again shortly."_s;
    case Kind::networkFailure:
        return u"Check your internet connection and try again."_s;
    case Kind::releaseNotFound:
        return u"Search again and pick a different release."_s;
    }
    Q_UNREACHABLE();
}

bool MetadataServiceError::operator==(const MetadataServiceError &other) const
{
    return kind == other.kind && source == other.source && text == other.text &&
           statusCode == other.statusCode;
}

} // namespace tonearm
