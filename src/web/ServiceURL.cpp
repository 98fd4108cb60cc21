// SPDX-License-Identifier: GPL-3.0-or-later
#include "web/ServiceURL.h"

#include "web/MetadataServiceError.h"

namespace tonearm {

namespace {

QString percentEncoded(const QString &text)
{
    // Half of a surrogate pair would go out as a replacement character: another search than was asked.
    if (!text.isValidUtf16())
        throw MetadataServiceError::invalidQuery(text);
    return QString::fromLatin1(QUrl::toPercentEncoding(text));
}

QString percentEncodedSegment(const QString &segment)
{
    if (segment.isEmpty())
        throw MetadataServiceError::invalidQuery(segment);
    return percentEncoded(segment);
}

} // namespace

QUrl serviceURL(const QString &base, const QStringList &segments, const QList<QueryPair> &query)
{
    QString text = base;
    for (const QString &segment : segments)
        text += u'/' + percentEncodedSegment(segment);

    QStringList pairs;
    for (const QueryPair &pair : query)
        pairs.append(pair.key + u'=' + percentEncoded(pair.value));
    if (!pairs.isEmpty())
        text += u'?' + pairs.join(u'&');

    QUrl url(text, QUrl::StrictMode);
    if (!url.isValid())
        throw MetadataServiceError::invalidQuery(text);
    return url;
}

} // namespace tonearm
