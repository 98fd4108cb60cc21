// SPDX-License-Identifier: GPL-3.0-or-later
#include "encoding/PathText.h"

namespace tonearm {

QString plainPath(const QUrl &url)
{
    const QString path = url.toLocalFile();
    return path.size() >= 2 && path.endsWith(u'/') ? path.chopped(1) : path;
}

QString lastPathComponent(const QUrl &url)
{
    const QString path = plainPath(url);
    const QString name = path.sliced(path.lastIndexOf(u'/') + 1);
    return name.isEmpty() ? path : name;
}

} // namespace tonearm
