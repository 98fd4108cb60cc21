// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <gtest/gtest.h>

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

namespace tonearm::test {

/// What the two forms of ffmpeg made.
struct TwoFiles
{
    QString shipped;
    QString system;
};

/// The base of tests that let the shipped tools and the system's do the same work and expect the same
/// result. There is nothing to compare where the shipped tools are links to the system's.
class ToolComparison : public testing::Test
{
protected:
    void SetUp() override;

    /// The path of a file in the test's own folder.
    QString path(const QString &name) const;

    /// Makes a file of that name in the test's folder with the system's ffmpeg.
    void make(const QString &name, const QStringList &arguments) const;

    /// Lets both forms of ffprobe inspect a file, which has to succeed, and expects the same text.
    /// Returns the shipped one's.
    QByteArray expectSameProbe(const QStringList &options, const QString &file) const;

    /// Lets both forms of ffmpeg write a file of that name, which has to succeed, each in a folder of
    /// its own, and expects the same bytes.
    TwoFiles expectSameFile(const QStringList &arguments, const QString &name) const;

private:
    QTemporaryDir m_folder;
};

/// What the head of a FLAC file tells of its samples.
struct FlacSummary
{
    int bitsPerSample = 0;
    qint64 sampleCount = 0;
    /// Of the samples, in hexadecimal.
    QByteArray md5;
};

/// Reads the STREAMINFO block; fails the test if the file doesn't begin with one.
FlacSummary flacSummary(const QString &path);

/// The MD5 of a FLAC file's samples as the system's ffmpeg decodes them, in hexadecimal.
QByteArray decodedMd5(const QString &path, int bitsPerSample);

/// ffprobe's arguments for the source of chapters, without the file.
QStringList sourceProbeOptions();

/// ffprobe's arguments for the tags of a file, without the file.
QStringList tagProbeOptions();

/// One track to encode: a cut of its source, or the whole of it where no start is given.
struct TrackToEncode
{
    QString source;
    /// Empty for none.
    QString cover = {};
    /// Seconds with six decimals.
    QString start = {};
    QString length = {};
};

/// ffmpeg's arguments for a track, without the output file.
QStringList encodingArguments(const TrackToEncode &track);

} // namespace tonearm::test
