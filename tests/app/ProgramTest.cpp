// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QProcess>
#include <QProcessEnvironment>

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

} // namespace

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
