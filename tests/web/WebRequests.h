// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "web/MetadataServiceError.h"
#include "web/WebSession.h"

#include <optional>

namespace tonearm::test {

/// A request with headers that the tests don't look at.
WebRequest requestFor(const QUrl &url);

/// Fetches a URL in the name of Discogs; throws as the session does.
WebReply fetch(WebSession &session, const QUrl &url, qint64 bodyLimit = maximumJsonBytes);

/// What fetching a URL in the name of Discogs fails with; nothing if it doesn't.
std::optional<MetadataServiceError> fetchFailure(WebSession &session, const QUrl &url,
                                                 qint64 bodyLimit = maximumJsonBytes);

/// The detail of a networkFailure of Discogs; the empty text for anything else.
QString networkDetail(const std::optional<MetadataServiceError> &error);

} // namespace tonearm::test
