// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QList>
#include <QProcessEnvironment>
#include <QString>
#include <QStringList>

namespace tonearm::test {

/// What a program left behind; exit code -1 if it didn't start, crashed or took too long.
struct ProgramRun
{
    int exitCode = -1;
    QByteArray output;
    QByteArray errors;
};

/// Runs a program to its end, with nothing to read on its standard input.
ProgramRun runProgram(const QString &program, const QStringList &arguments,
                      const QProcessEnvironment &environment = QProcessEnvironment::systemEnvironment());

/// How one of FFmpeg's programs says that it was configured.
QString buildConfiguration(const QString &program);

/// The words of a text that are set apart by blanks: for argument lists without blanks in them.
QStringList words(const QString &text);

/// The path of a tool that the application ships.
QString shippedTool(const QString &name);

/// The path of the system's tool of that name; fails the test if there is none.
QString systemTool(const QString &name);

/// The field of the notice beside the shipped tools that describes ffmpeg and ffprobe, for example
/// "Origin"; empty if it isn't there.
QString noticeField(const QString &notice, const QString &field);

/// The text of that notice.
QString shippedNotice();

/// Whether the shipped ffmpeg and ffprobe are the project's own build, and not links to the system's.
bool areShippedToolsBuilt();

/// One thing that ffmpeg has to be able to do.
struct Component
{
    /// "demuxer", "decoder", "parser", ...
    QString kind;
    /// The name that ffmpeg is configured by.
    QString configuredName;
    /// The name that the finished tool lists it by.
    QString listedName;
};

/// The components that the shipped ffmpeg and ffprobe are made of.
QList<Component> neededComponents();

} // namespace tonearm::test
