// SPDX-License-Identifier: GPL-3.0-or-later
#include "tageditor/Id3Version.h"

#include "support/PathText.h"

#include <QFile>

namespace tonearm {

using namespace Qt::StringLiterals;

std::optional<int> id3Version(const QUrl &url)
{
    constexpr qint64 headerBytes = 4;
    if (lowerCaseExtension(url) != u"mp3"_s)
        return std::nullopt;
    QFile file(url.toLocalFile());
    if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        return std::nullopt;
    const QByteArray header = file.read(headerBytes);
    if (header.size() < headerBytes || !header.startsWith("ID3"))
        return std::nullopt;
    const int version = header.back();
    return version == 3 || version == 4 ? std::optional(version) : std::nullopt;
}

} // namespace tonearm
