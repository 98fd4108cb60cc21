// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tageditor/TagWrite.h"

#include <QMap>
#include <QString>
#include <QUrl>

namespace tonearm::test {

/// Pending edits of one file.
inline TagChangeSet editing(const QUrl &url, const QMap<EditableTagField, QString> &edits,
                            const ArtworkIntent &intent = {})
{
    return {.fieldEdits = {{url, edits}}, .artworkIntents = {{url, intent}}, .optimizing = {}};
}

/// A plan that gives a file another title.
inline TagWrite newTitle(const QString &title = QStringLiteral("New Title"))
{
    return {.metadata = {QStringLiteral("-metadata"), QStringLiteral("title=") + title}, .artwork = {}};
}

/// A plan that does nothing but put in another picture.
inline TagWrite newPicture(const QString &path)
{
    return {.metadata = {}, .artwork = ArtworkWrite::replace(QUrl::fromLocalFile(path))};
}

} // namespace tonearm::test
