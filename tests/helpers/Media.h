// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

namespace tonearm::test {

/// A chapter marker, in seconds, to the millisecond.
struct ChapterMark
{
    double start = 0;
    double end = 0;
    QString title = {};
};

/// What a generated source holds. The sound is a tone that rises from start to end, on every channel
/// from another pitch, so that no two moments of it sound alike.
struct MediaRecipe
{
    /// ffmpeg's output options for the audio, for example {"-c:a", "flac", "-sample_fmt", "s16"}; empty
    /// for a file without audio. Experimental encoders are allowed.
    QStringList audioCodec = {QStringLiteral("-c:a"), QStringLiteral("flac"), QStringLiteral("-sample_fmt"),
                              QStringLiteral("s16")};
    int sampleRate = 44100;
    /// ffmpeg's name, for example "mono", "stereo", "5.1(side)".
    QString channelLayout = QStringLiteral("stereo");
    /// In seconds.
    double duration = 4;
    /// A title must not end in a backslash: ffmpeg misreads such a list. An empty one is left out.
    QList<ChapterMark> chapters = {};
    /// Global metadata, each "key=value".
    QStringList metadata = {};
    /// Whether there is a small video stream too.
    bool hasVideo = false;
};

/// The recipes' codecs by name: FLAC with 16 and 24 bits, PCM, TrueHD, MLP, DTS, AC-3, E-AC-3, ALAC.
namespace codec {

QStringList flac16();
QStringList flac24();
QStringList pcm16();
QStringList pcm24();
QStringList trueHD();
QStringList dts();
QStringList ac3();
QStringList alac();

} // namespace codec

/// Makes an audio file, in the container that the path's extension names (mkv, flac, wav, aiff, m4a,
/// mp3), with the system's ffmpeg; fails the test if that fails.
void makeMedia(const QString &path, const MediaRecipe &recipe = {});

/// Makes a picture of one colour in the format that the path's extension names (jpg, png).
void makePicture(const QString &path, int width, int height);

/// The decoded samples of a file's first audio stream, 32 bits each, interleaved.
QByteArray decodedAudio(const QString &path);

/// The Vorbis comments of a FLAC file as metaflac tells them, "NAME=value", in the file's order.
QStringList flacTags(const QString &path);

/// What a program found on the PATH prints on stdout; fails the test if it doesn't exit with 0.
QByteArray outputOf(const QString &program, const QStringList &arguments);

} // namespace tonearm::test
