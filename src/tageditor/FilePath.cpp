// SPDX-License-Identifier: GPL-3.0-or-later
#include "tageditor/FilePath.h"

#include "support/Text.h"

#include <QFileInfo>

#include <system_error>

namespace tonearm {

namespace {

QByteArray pathBytes(const QUrl &url)
{
    return QByteArray::fromPercentEncoding(url.path(QUrl::FullyEncoded).toLatin1());
}

} // namespace

QUrl fileURL(const std::filesystem::path &path)
{
    const QByteArray bytes = QByteArray::fromStdString(path.native());
    if (const std::optional<QString> text = decodedUtf8(bytes))
        return QUrl::fromLocalFile(*text);
    return QUrl::fromEncoded("file://" + bytes.toPercentEncoding("/"));
}

std::filesystem::path nativePath(const QUrl &url)
{
    return pathBytes(url).toStdString();
}

QString textPath(const QUrl &url)
{
    const QByteArray bytes = pathBytes(url);
    if (const std::optional<QString> text = decodedUtf8(bytes))
        return *text;
    throw std::system_error(std::make_error_code(std::errc::illegal_byte_sequence), bytes.toStdString());
}

std::optional<QDateTime> contentModificationDate(const QUrl &url)
{
    const QDateTime date = QFileInfo(url.toLocalFile()).lastModified();
    return date.isValid() ? std::optional(date) : std::nullopt;
}

} // namespace tonearm
