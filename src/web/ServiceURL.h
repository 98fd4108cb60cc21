// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <QUrl>

namespace tonearm {

/// One "key=value" of a query. The key goes out as it stands, the value percent-encoded.
struct QueryPair
{
    QString key;
    QString value;

    bool operator==(const QueryPair &) const = default;
};

/// The base with the segments and the query behind it. Of segments and values everything but letters,
/// digits and "-._~" of ASCII is percent-encoded, so that a slash in a segment stays part of it.
/// Throws MetadataServiceError (invalidQuery) for an empty segment and for a text that is no valid
/// Unicode.
///
/// `base` is the service's address without a slash at its end: "https://musicbrainz.org".
QUrl serviceURL(const QString &base, const QStringList &segments, const QList<QueryPair> &query = {});

} // namespace tonearm
