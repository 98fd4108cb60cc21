// SPDX-License-Identifier: GPL-3.0-or-later
#include "helpers/ScriptedTools.h"

#include "helpers/Contents.h"
#include "support/Numbers.h"
#include "support/ResourceFolder.h"
#include "tools/ToolLocation.h"

#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace tonearm::test {

using namespace Qt::StringLiterals;

namespace {

constexpr auto answerVersion = R"(
case "$*" in *-version*) echo "$(basename "$0") version 9.9 of the test"; exit 0;; esac
)";

constexpr auto readProbeArguments = R"(
for source; do :; done
)";

constexpr auto readEncodingArguments = R"(
source=
before=
for output; do :; done
for item; do
    if [ "$before" = -i ] && [ -z "$source" ]; then source=$item; fi
    case $item in track=*) track=${item#track=};; esac
    before=$item
done
printf '%s\n' "$@" > "$here/arguments-$track"
)";

QString argumentsName(int track)
{
    return u"arguments-%1"_s.arg(track);
}

} // namespace

ScriptedTools::ScriptedTools(const QList<ChapterMark> &chapters)
{
    writeFile(source(), "source");
    writeFile(path(u"reply.json"_s), replyFor(chapters));
    setProbe(R"(cat "$here/reply.json")");
    setEncoding(R"(echo sound > "$output")");
}

void ScriptedTools::setProbe(const QByteArray &body)
{
    add(u"ffprobe"_s, QByteArray(answerVersion) + readProbeArguments + body);
}

void ScriptedTools::setEncoding(const QByteArray &body)
{
    add(u"ffmpeg"_s, QByteArray(answerVersion) + readEncodingArguments + body);
}

QStringList ScriptedTools::argumentsOfTrack(int number) const
{
    return QString::fromUtf8(readFile(path(argumentsName(number)))).chopped(1).split(u'\n');
}

bool ScriptedTools::hasStarted(int number) const
{
    return QFileInfo::exists(path(argumentsName(number)));
}

QByteArray ScriptedTools::replyFor(const QList<ChapterMark> &chapters)
{
    constexpr int decimals = 6;
    QJsonArray list;
    for (const ChapterMark &chapter : chapters) {
        list.append(QJsonObject{{u"start_time"_s, fixedPoint(chapter.start, decimals)},
                                {u"end_time"_s, fixedPoint(chapter.end, decimals)},
                                {u"tags"_s, QJsonObject{{u"title"_s, chapter.title}}}});
    }
    const QJsonObject stream{{u"codec_name"_s, u"flac"_s},
                             {u"sample_rate"_s, u"44100"_s},
                             {u"channels"_s, 2},
                             {u"channel_layout"_s, u"stereo"_s},
                             {u"bits_per_raw_sample"_s, u"16"_s}};
    return QJsonDocument(QJsonObject{{u"chapters"_s, list}, {u"streams"_s, QJsonArray{stream}}}).toJson();
}

QByteArray ScriptedTools::realEncoding()
{
    const QUrl real = ToolLocation(resourceFolder()).toolURL(u"ffmpeg"_s);
    return "'" + QFile::encodeName(real.toLocalFile()) + "' \"$@\"\n";
}

QByteArray ScriptedTools::waiting(const QByteArray &name)
{
    return "while [ ! -e \"$here/" + name + "\" ]; do sleep 0.01; done\n";
}

void ScriptedTools::release(const QString &name) const
{
    writeFile(path(name), {});
}

} // namespace tonearm::test
