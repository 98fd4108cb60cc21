// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/aboutwindows/LicenceDocument.h"

#include "support/NaturalOrder.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

bool isNotices(const LicenceDocument &document)
{
    return document.id == u"README"_s;
}

} // namespace

QList<LicenceDocument> licenceDocuments(const std::optional<QString> &resourceFolder)
{
    if (!resourceFolder)
        return {};
    QList<LicenceDocument> documents;
    const QDir folder(*resourceFolder + u"/Licenses"_s);
    for (const QFileInfo &file : folder.entryInfoList(QDir::Files, QDir::Name))
        documents.append({file.completeBaseName(), QUrl::fromLocalFile(file.filePath())});
    const NaturalOrder order;
    std::stable_sort(documents.begin(), documents.end(),
                     [&order](const LicenceDocument &one, const LicenceDocument &other) {
                         if (isNotices(one) != isNotices(other))
                             return isNotices(one);
                         return order(one.id, other.id);
                     });
    return documents;
}

QString sidebarLabel(const LicenceDocument &document)
{
    return isNotices(document) ? u"Notices"_s : document.id;
}

QString textOf(const LicenceDocument &document)
{
    QFile file(document.url.toLocalFile());
    if (!file.open(QFile::ReadOnly))
        return u"\"%1\" could not be read: %2."_s.arg(document.url.fileName(), file.errorString());
    return QString::fromUtf8(file.readAll());
}

} // namespace tonearm
