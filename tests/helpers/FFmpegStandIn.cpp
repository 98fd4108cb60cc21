// SPDX-License-Identifier: GPL-3.0-or-later
#include "helpers/FFmpegStandIn.h"

#include "helpers/SongFolder.h"

#include <QFile>

namespace tonearm::test {

using namespace Qt::StringLiterals;

namespace {

QByteArray realTool(const QString &name)
{
    return "'" + QFile::encodeName(shippedTools().toolURL(name).toLocalFile()) + "'";
}

} // namespace

FFmpegStandIn::FFmpegStandIn(const QByteArray &body)
{
    add(u"ffprobe"_s, "exec " + realTool(u"ffprobe"_s) + " \"$@\"");
    add(u"ffmpeg"_s, "ffmpeg=" + realTool(u"ffmpeg"_s) + "\nfor output; do :; done\n" + body);
}

} // namespace tonearm::test
