// SPDX-License-Identifier: GPL-3.0-or-later
#include "helpers/Await.h"
#include "helpers/Contents.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QProcess>
#include <QProcessEnvironment>
#include <QTemporaryDir>

#include <csignal>

namespace tonearm::test {

using namespace Qt::StringLiterals;

namespace {

struct Ending
{
    int code = -1;
    QByteArray output = {};
    QByteArray errors = {};
};

// Runs the program to its end; without a platform name it finds no display.
Ending run(const QStringList &arguments, const QString &platform = {})
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const QString &name : {u"DISPLAY"_s, u"WAYLAND_DISPLAY"_s, u"QT_QPA_PLATFORM"_s})
        environment.remove(name);
    if (!platform.isEmpty())
        environment.insert(u"QT_QPA_PLATFORM"_s, platform);
    QProcess program;
    program.setProcessEnvironment(environment);
    program.start(QCoreApplication::applicationDirPath() + u"/tonearm"_s, arguments);
    if (!program.waitForFinished(60000) || program.exitStatus() != QProcess::NormalExit)
        return {};
    return {program.exitCode(), program.readAllStandardOutput(), program.readAllStandardError()};
}

// Whether a process ignores a signal, as the system tells it.
bool ignores(qint64 process, int signal)
{
    constexpr int hexadecimal = 16;
    const QByteArray status = readFile(u"/proc/%1/status"_s.arg(process));
    const QByteArray field = "SigIgn:\t";
    const qsizetype begin = status.indexOf(field) + field.size();
    const quint64 ignored = status.mid(begin, hexadecimal).toULongLong(nullptr, hexadecimal);
    return (ignored >> (signal - 1) & 1U) != 0;
}

} // namespace

TEST(Program, WatchesItsChildrenWhereItsParentIgnoredThem)
{
    const QTemporaryDir home;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"QT_QPA_PLATFORM"_s, u"offscreen"_s);
    for (const QString &name : {u"HOME"_s, u"XDG_CONFIG_HOME"_s, u"XDG_STATE_HOME"_s, u"XDG_CACHE_HOME"_s})
        environment.insert(name, home.path());
    for (const QString &bus : {u"DBUS_SESSION_BUS_ADDRESS"_s, u"DBUS_SYSTEM_BUS_ADDRESS"_s})
        environment.insert(bus, u"unix:path="_s + home.filePath(u"no-bus"_s));
    QProcess program;
    program.setProcessEnvironment(environment);
    program.setChildProcessModifier([] { std::signal(SIGCHLD, SIG_IGN); });
    program.start(QCoreApplication::applicationDirPath() + u"/tonearm"_s, QStringList());
    ASSERT_TRUE(program.waitForStarted());

    EXPECT_TRUE(eventually([&] { return !ignores(program.processId(), SIGCHLD); }));
    // An ended program ignores nothing either.
    EXPECT_EQ(program.state(), QProcess::Running);
    program.kill();
    EXPECT_TRUE(program.waitForFinished());
}

TEST(Program, TellsItsVersionWithoutADisplay)
{
    const Ending ending = run({u"--version"_s});

    EXPECT_EQ(ending.code, 0);
    EXPECT_EQ(ending.output, "tonearm " TONEARM_VERSION "\n");
    EXPECT_EQ(ending.errors, "");
}

TEST(Program, TellsItsUsageWithoutADisplay)
{
    const Ending ending = run({u"--help"_s});

    EXPECT_EQ(ending.code, 0);
    EXPECT_TRUE(ending.output.startsWith("Usage: ")) << ending.output.toStdString();
    EXPECT_EQ(ending.errors, "");
}

TEST(Program, RefusesACommandLineThatMakesNoSense)
{
    const Ending ending = run({u"--louder"_s}, u"offscreen"_s);

    EXPECT_EQ(ending.code, 2);
    EXPECT_EQ(ending.output, "");
    // Qt may have remarked on the surroundings before.
    EXPECT_TRUE(ending.errors.endsWith("tonearm: Unknown option 'louder'.\n")) << ending.errors.toStdString();
}

} // namespace tonearm::test
