// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/records/GenreCatalog.h"

#include "support/Json.h"

#include <QFile>

#include <utility>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

QList<Genre> decode(const QByteArray &bytes)
{
    QList<Genre> genres;
    for (const JsonNode &entry : JsonNode::parse(bytes).elements())
        genres.append({entry.require(u"name"_s).text()});
    return genres;
}

// The list is a convenience: without it every genre can still be typed, so no failure is told.
QList<Genre> load(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    try {
        return decode(file.readAll());
    } catch (const JsonError &) {
        return {};
    }
}

} // namespace

GenreCatalog::GenreCatalog(QString resourceFile)
    : m_resourceFile(std::move(resourceFile))
{
}

QList<Genre> GenreCatalog::defaults() const
{
    const std::lock_guard guard(m_lock);
    if (!m_loaded)
        m_loaded = load(m_resourceFile);
    return *m_loaded;
}

} // namespace tonearm
