// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QString>
#include <QUrl>

#include <optional>

namespace tonearm {

/// One of the texts about what comes with the application.
struct LicenceDocument
{
    /// The file's name without its extension.
    QString id;
    QUrl url;

    bool operator==(const LicenceDocument &) const = default;
};

/// The documents in the folder Licenses of a resource folder, the notices first; none where there is no
/// folder. Looks at the disk.
QList<LicenceDocument> licenceDocuments(const std::optional<QString> &resourceFolder);

/// What the list calls a document.
QString sidebarLabel(const LicenceDocument &document);

/// Its whole text, or words that it couldn't be read. Reads the disk.
QString textOf(const LicenceDocument &document);

} // namespace tonearm
