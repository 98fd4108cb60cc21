// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QProcessEnvironment>
#include <QString>
#include <QTemporaryDir>

namespace tonearm::test {

/// What passes for the source of ffmpeg: a shell script and what makes the tools. As it is, it "builds"
/// in no time tools that hand over to the system's.
struct StandInSource
{
    QByteArray configure = "echo 'License: made up'";
    QByteArray makefile = "ffmpeg ffprobe:\n"
                          "\tprintf '#!/bin/sh\\nexec /usr/bin/%s \"$$@\"\\n' $@ >$@\n"
                          "\tchmod +x $@\n";
};

/// An apt of the test's own, with package sources in local folders: one that carries a package ffmpeg
/// and its source, once it is offered, and one that carries neither.
class PackageSources
{
public:
    PackageSources();

    /// Fills the folder that carries ffmpeg.
    void offerFFmpeg(const StandInSource &standIn = {});

    /// Adds a file to apt's sources; in its text FFMPEG and OTHER stand for the addresses of the two.
    void addEntries(const QString &fileName, QString text) const;

    /// Lets apt read the lists of all entries.
    void updateLists() const;

    /// What a program has to be run with to use this apt.
    QProcessEnvironment environment() const;

    /// The version of the stand-in source.
    static QString version();

    QString folder() const { return m_folder.path(); }

private:
    QString path(const QString &name) const { return m_folder.filePath(name); }

    QTemporaryDir m_folder;
};

} // namespace tonearm::test
