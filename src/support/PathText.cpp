// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/PathText.h"

#include <QFileInfo>

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

QString lowerCaseExtension(const QUrl &url)
{
    const QFileInfo file(lastPathComponent(url));
    return file.completeBaseName().isEmpty() ? QString() : file.suffix().toLower();
}

} // namespace tonearm
