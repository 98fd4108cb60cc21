// SPDX-License-Identifier: GPL-3.0-or-later
#include "web/WebRequests.h"

#include "helpers/Await.h"

namespace tonearm::test {

using namespace Qt::StringLiterals;

WebRequest requestFor(const QUrl &url)
{
    return {.url = url, .userAgent = u"Tonearm/1.0"_s, .accept = u"*/*"_s};
}

WebReply fetch(WebSession &session, const QUrl &url, qint64 bodyLimit)
{
    return await(session.data(requestFor(url), MetadataSource::discogs, bodyLimit, {}));
}

std::optional<MetadataServiceError> fetchFailure(WebSession &session, const QUrl &url, qint64 bodyLimit)
{
    return errorOf<MetadataServiceError>([&] { return fetch(session, url, bodyLimit); });
}

QString networkDetail(const std::optional<MetadataServiceError> &error)
{
    const bool isNetworkFailure =
        error && *error == MetadataServiceError::networkFailure(MetadataSource::discogs, error->text);
    return isNetworkFailure ? error->text : QString();
}

} // namespace tonearm::test
