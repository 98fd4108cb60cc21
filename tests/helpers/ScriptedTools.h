// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "helpers/Media.h"
#include "helpers/StandInTools.h"

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

namespace tonearm::test {

/// Shell scripts in the place of ffmpeg and ffprobe that answer a check of the tools and do as the test
/// says otherwise. Other tools can be added.
class ScriptedTools : public StandInTools
{
public:
    /// ffprobe tells of these chapters, whatever the file, and of a 16-bit FLAC stream; ffmpeg leaves
    /// a few bytes as its output.
    explicit ScriptedTools(const QList<ChapterMark> &chapters = {{0, 10, QStringLiteral("One")}});

    /// A file that will do as a source; what it holds doesn't matter.
    QString source() const { return path(QStringLiteral("source.mkv")); }

    /// What ffprobe does; `$source` is the file and `$here` this folder. Left alone it prints reply.json.
    void setProbe(const QByteArray &body);

    /// What ffmpeg does for a track; `$source` is its first input, `$track` the number, `$output` the
    /// file to write and `$here` this folder. Its arguments are on record by then.
    void setEncoding(const QByteArray &body);

    /// What ffmpeg was given for a track.
    QStringList argumentsOfTrack(int number) const;

    /// Whether ffmpeg was started for a track.
    bool hasStarted(int number) const;

    /// ffprobe's reply for these chapters.
    static QByteArray replyFor(const QList<ChapterMark> &chapters);

    /// A line of script that runs the real ffmpeg with the script's arguments.
    static QByteArray realEncoding();

    /// A line of script that waits until the test has made the file `name`, in short naps.
    static QByteArray waiting(const QByteArray &name);

    /// Makes a file for which a script waits.
    void release(const QString &name) const;
};

} // namespace tonearm::test
