// SPDX-License-Identifier: GPL-3.0-or-later
#include "audiotools/ToolComparison.h"

#include "audiotools/AudioTools.h"
#include "helpers/Contents.h"

#include <QDir>
#include <QFile>
#include <QtEndian>

namespace tonearm::test {

using namespace Qt::StringLiterals;

namespace {

QString messageOf(const ProgramRun &run)
{
    return u"exit code %1: %2"_s.arg(QString::number(run.exitCode), QString::fromUtf8(run.errors));
}

} // namespace

void ToolComparison::SetUp()
{
    if (!areShippedToolsBuilt())
        GTEST_SKIP() << "nothing to compare: the shipped ffmpeg and ffprobe are links to the system's";
    ASSERT_TRUE(m_folder.isValid());
}

QString ToolComparison::path(const QString &name) const
{
    return m_folder.filePath(name);
}

void ToolComparison::make(const QString &name, const QStringList &arguments) const
{
    const QStringList first = words(u"-hide_banner -v error -y"_s);
    const ProgramRun run = runProgram(systemTool(u"ffmpeg"_s), first + arguments + QStringList{path(name)});
    ASSERT_EQ(run.exitCode, 0) << run.errors.toStdString();
}

QByteArray ToolComparison::expectSameProbe(const QStringList &options, const QString &file) const
{
    const QStringList arguments = options + QStringList{file};
    const ProgramRun shipped = runProgram(shippedTool(u"ffprobe"_s), arguments);
    const ProgramRun system = runProgram(systemTool(u"ffprobe"_s), arguments);
    EXPECT_EQ(system.exitCode, 0) << messageOf(system).toStdString();
    EXPECT_EQ(shipped.exitCode, 0) << messageOf(shipped).toStdString();
    EXPECT_EQ(shipped.output.toStdString(), system.output.toStdString());
    return shipped.output;
}

TwoFiles ToolComparison::expectSameFile(const QStringList &arguments, const QString &name) const
{
    const auto result = [&](const QString &tool, const QString &folder) {
        QDir(m_folder.path()).mkpath(folder);
        const QString output = path(folder + u'/' + name);
        QFile::remove(output);
        const ProgramRun run = runProgram(tool, arguments + QStringList{output});
        EXPECT_EQ(run.exitCode, 0) << tool.toStdString() << ' ' << messageOf(run).toStdString();
        return output;
    };
    const TwoFiles files{.shipped = result(shippedTool(u"ffmpeg"_s), u"shipped"_s),
                         .system = result(systemTool(u"ffmpeg"_s), u"system"_s)};
    const QByteArray bytes = readFile(files.shipped);
    EXPECT_FALSE(bytes.isEmpty());
    EXPECT_TRUE(bytes == readFile(files.system)) << arguments.join(u' ').toStdString();
    return files;
}

FlacSummary flacSummary(const QString &path)
{
    // "fLaC", the block's head of four bytes, then the block of 34 with the MD5 in its last 16.
    constexpr int blockStart = 8;
    constexpr int packedFields = blockStart + 10;
    constexpr int md5Start = blockStart + 18;
    constexpr int md5Size = 16;
    const QByteArray bytes = readFile(path);
    if (!bytes.startsWith(QByteArrayView("fLaC\0", 5)) || bytes.size() < md5Start + md5Size) {
        ADD_FAILURE() << path.toStdString() << " doesn't begin as FLAC";
        return {};
    }
    // 20 bits of sample rate, 3 of channels, 5 of sample size less one, 36 of sample count.
    const auto packed = qFromBigEndian<quint64>(bytes.constData() + packedFields);
    constexpr quint64 countMask = (1ULL << 36) - 1;
    return {.bitsPerSample = static_cast<int>((packed >> 36) & 31) + 1,
            .sampleCount = static_cast<qint64>(packed & countMask),
            .md5 = bytes.sliced(md5Start, md5Size).toHex()};
}

QByteArray decodedMd5(const QString &path, int bitsPerSample)
{
    const QString format = u"pcm_s%1le"_s.arg(bitsPerSample);
    const ProgramRun run =
        runProgram(systemTool(u"ffmpeg"_s), {u"-v"_s, u"error"_s, u"-i"_s, path, u"-map"_s, u"0:a"_s,
                                             u"-c:a"_s, format, u"-f"_s, u"md5"_s, u"-"_s});
    EXPECT_EQ(run.exitCode, 0) << run.errors.toStdString();
    return run.output.trimmed().replace("MD5=", "");
}

QStringList sourceProbeOptions()
{
    return words(u"-v error -print_format json -show_chapters -show_streams -select_streams a:0"_s);
}

QStringList tagProbeOptions()
{
    return words(u"-v error -print_format json -show_format -show_streams"_s);
}

QStringList encodingArguments(const TrackToEncode &track)
{
    const bool hasCover = !track.cover.isEmpty();
    const bool isCut = !track.start.isEmpty();
    QStringList arguments = words(u"-hide_banner -v error -progress pipe:2 -nostats"_s);
    if (isCut)
        arguments << u"-accurate_seek"_s << u"-ss"_s << track.start;
    arguments << u"-i"_s << track.source;
    if (hasCover)
        arguments << u"-i"_s << track.cover;
    if (isCut)
        arguments << u"-t"_s << track.length;
    arguments << words(hasCover ? u"-map 0:a:0 -map 1:v:0 -c:a flac"_s : u"-map 0:a:0 -vn -c:a flac"_s);
    if (hasCover)
        arguments << words(u"-c:v copy -disposition:v:0 attached_pic"_s) << u"-metadata:s:v"_s
                  << u"title=Album cover"_s << u"-metadata:s:v"_s << u"comment=Cover (front)"_s;
    for (const QString &pair :
         {u"track=2"_s, u"TRACKTOTAL=3"_s, u"disc=1"_s, u"DISCTOTAL=2"_s, u"title=Été (live)"_s,
          u"artist=Anna"_s, u"album_artist=Anna"_s, u"album=Songs"_s, u"date=1999"_s, u"genre=Folk"_s})
        arguments << u"-metadata"_s << pair;
    return arguments << u"-y"_s;
}

} // namespace tonearm::test
