// SPDX-License-Identifier: GPL-3.0-or-later
#include "helpers/Media.h"

#include "helpers/Contents.h"
#include "support/Numbers.h"

#include <gtest/gtest.h>

#include <QProcess>
#include <QTemporaryDir>

namespace tonearm::test {

using namespace Qt::StringLiterals;

namespace {

constexpr int patienceMilliseconds = 200000;

QString toneSource(const MediaRecipe &recipe)
{
    const QString silence = u"aevalsrc=exprs=0:c=%1:s=%2:d=%3"_s.arg(
        recipe.channelLayout, QString::number(recipe.sampleRate), fixedPoint(recipe.duration, 3));
    // One expression serves every channel, here by its number.
    return silence + u",aeval=exprs=0.4*sin(2*PI*((220+110*ch)*t+60*t*t)):c=same"_s;
}

QString escaped(const QString &value)
{
    QString result;
    for (const QChar unit : value) {
        if (u"=;#\\\n"_s.contains(unit))
            result.append(u'\\');
        result.append(unit);
    }
    return result;
}

QString milliseconds(double seconds)
{
    constexpr double millisecondsPerSecond = 1000;
    return fixedPoint(seconds * millisecondsPerSecond, 0);
}

QByteArray metadataText(const MediaRecipe &recipe)
{
    QString text = u";FFMETADATA1\n"_s;
    for (const QString &pair : recipe.metadata) {
        const qsizetype equals = pair.indexOf(u'=');
        text += pair.first(equals) + u'=' + escaped(pair.sliced(equals + 1)) + u'\n';
    }
    for (const ChapterMark &chapter : recipe.chapters) {
        text += u"[CHAPTER]\nTIMEBASE=1/1000\nSTART="_s + milliseconds(chapter.start) + u"\nEND="_s +
                milliseconds(chapter.end) + u'\n';
        if (!chapter.title.isEmpty())
            text += u"title="_s + escaped(chapter.title) + u'\n';
    }
    return text.toUtf8();
}

QStringList silenced(const QStringList &arguments)
{
    return QStringList{u"-hide_banner"_s, u"-nostdin"_s, u"-v"_s, u"error"_s, u"-y"_s} + arguments;
}

} // namespace

namespace codec {

QStringList flac16()
{
    return {u"-c:a"_s, u"flac"_s, u"-sample_fmt"_s, u"s16"_s};
}

QStringList flac24()
{
    return {u"-c:a"_s, u"flac"_s, u"-sample_fmt"_s, u"s32"_s, u"-bits_per_raw_sample"_s, u"24"_s};
}

QStringList pcm16()
{
    return {u"-c:a"_s, u"pcm_s16le"_s};
}

QStringList pcm24()
{
    return {u"-c:a"_s, u"pcm_s24le"_s};
}

QStringList trueHD()
{
    return {u"-c:a"_s, u"truehd"_s};
}

QStringList dts()
{
    return {u"-c:a"_s, u"dca"_s};
}

QStringList ac3()
{
    return {u"-c:a"_s, u"ac3"_s};
}

QStringList alac()
{
    return {u"-c:a"_s, u"alac"_s};
}

} // namespace codec

QByteArray outputOf(const QString &program, const QStringList &arguments)
{
    QProcess process;
    process.start(program, arguments, QIODevice::ReadOnly);
    const bool isFinished = process.waitForFinished(patienceMilliseconds);
    EXPECT_TRUE(isFinished && process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0)
        << program.toStdString() << ' ' << arguments.join(u' ').toStdString() << '\n'
        << process.errorString().toStdString() << '\n'
        << process.readAllStandardError().toStdString();
    return process.readAllStandardOutput();
}

void makeMedia(const QString &path, const MediaRecipe &recipe)
{
    const QTemporaryDir folder;
    const QString metadata = folder.filePath(u"metadata.txt"_s);
    writeFile(metadata, metadataText(recipe));

    QStringList inputs = {u"-f"_s, u"ffmetadata"_s, u"-i"_s, metadata};
    QStringList outputs = {u"-map_metadata"_s, u"0"_s, u"-map_chapters"_s, u"0"_s, u"-strict"_s, u"-2"_s};
    int input = 0;
    if (!recipe.audioCodec.isEmpty()) {
        inputs << u"-f"_s << u"lavfi"_s << u"-i"_s << toneSource(recipe);
        outputs << u"-map"_s << u"%1:a"_s.arg(++input) << recipe.audioCodec;
    }
    if (recipe.hasVideo) {
        inputs << u"-f"_s << u"lavfi"_s << u"-i"_s
               << u"testsrc2=s=64x48:r=5:d=%1"_s.arg(fixedPoint(recipe.duration, 3));
        outputs << u"-map"_s << u"%1:v"_s.arg(++input) << u"-c:v"_s << u"mjpeg"_s;
    }
    outputOf(u"ffmpeg"_s, silenced(inputs + outputs + QStringList{path}));
}

void makePicture(const QString &path, int width, int height)
{
    const QString colour = u"color=c=teal:s=%1x%2:d=1"_s.arg(width).arg(height);
    outputOf(u"ffmpeg"_s, silenced({u"-f"_s, u"lavfi"_s, u"-i"_s, colour, u"-frames:v"_s, u"1"_s,
                                    u"-update"_s, u"1"_s, path}));
}

QByteArray decodedAudio(const QString &path)
{
    return outputOf(u"ffmpeg"_s, silenced({u"-i"_s, path, u"-map"_s, u"0:a:0"_s, u"-c:a"_s, u"pcm_s32le"_s,
                                           u"-f"_s, u"s32le"_s, u"-"_s}));
}

QStringList flacTags(const QString &path)
{
    const QByteArray text = outputOf(u"metaflac"_s, {u"--no-utf8-convert"_s, u"--export-tags-to=-"_s, path});
    return QString::fromUtf8(text).split(u'\n', Qt::SkipEmptyParts);
}

} // namespace tonearm::test
