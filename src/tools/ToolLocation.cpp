// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/ToolLocation.h"

#include <QFileInfo>

#include <utility>

namespace tonearm {

using namespace Qt::StringLiterals;

FFmpegNotFoundError::FFmpegNotFoundError(QString missingTool)
    : missing(std::move(missingTool))
{
}

QString FFmpegNotFoundError::description() const
{
    return missing + u" could not be found."_s;
}

std::optional<QString> FFmpegNotFoundError::recoverySuggestion() const
{
    return missing +
           u" ships inside Tonearm, so this copy of the app looks damaged. Replacing it with a fresh download "
           u"should restore it."_s;
}

ToolLocation::ToolLocation(std::optional<QString> resourceFolder)
    : m_resourceFolder(std::move(resourceFolder))
{
}

QString ToolLocation::toolDirectory() const
{
    if (!m_resourceFolder)
        throw FFmpegNotFoundError(u"ffmpeg"_s);
    return *m_resourceFolder + u"/bin"_s;
}

QUrl ToolLocation::toolURL(const QString &named) const
{
    const QString path = toolDirectory() + u'/' + named;
    const QFileInfo file(path);
    if (!file.isFile() || !file.isExecutable())
        throw FFmpegNotFoundError(named);
    return QUrl::fromLocalFile(path);
}

} // namespace tonearm
