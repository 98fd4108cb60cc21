// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/elements/WindowSizesFile.h"

#include <QDir>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSaveFile>

#include <optional>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

// Far more than a few windows need; a larger file is none of ours.
constexpr qint64 largestBytes = qint64(1) << 16;
// Qt's own limit.
constexpr int longestSide = (1 << 24) - 1;

QJsonObject readObject(const QString &path)
{
    QFile file(path);
    // A pipe would wait for its other end.
    const QFileInfo info(path);
    if (!info.isFile() || info.size() > largestBytes || !file.open(QIODevice::ReadOnly))
        return {};
    return QJsonDocument::fromJson(file.read(largestBytes)).object();
}

std::optional<KeptWindowSize> windowSize(const QJsonObject &entry)
{
    const QSize size(entry[u"width"_s].toInt(), entry[u"height"_s].toInt());
    if (size.isEmpty() || size.width() > longestSide || size.height() > longestSide)
        return std::nullopt;
    return KeptWindowSize{size, entry[u"maximised"_s].toBool()};
}

} // namespace

QHash<QString, KeptWindowSize> readWindowSizes(const QString &path)
{
    QHash<QString, KeptWindowSize> sizes;
    const QJsonObject entries = readObject(path);
    for (auto entry = entries.begin(); entry != entries.end(); ++entry) {
        if (const std::optional<KeptWindowSize> size = windowSize(entry.value().toObject()))
            sizes.insert(entry.key(), *size);
    }
    return sizes;
}

void writeWindowSize(const QString &path, const QString &id, const KeptWindowSize &size)
{
    QJsonObject entries = readObject(path);
    entries[id] = QJsonObject{{u"width"_s, size.size.width()},
                              {u"height"_s, size.size.height()},
                              {u"maximised"_s, size.isMaximised}};
    QDir().mkpath(QFileInfo(path).path());
    QSaveFile file(path);
    const QByteArray bytes = QJsonDocument(entries).toJson();
    // Without the flush a full disk would go unnoticed, and leave an empty file.
    if (file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.flush())
        file.commit();
}

} // namespace tonearm
