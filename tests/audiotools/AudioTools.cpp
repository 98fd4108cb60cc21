// SPDX-License-Identifier: GPL-3.0-or-later
#include "audiotools/AudioTools.h"

#include "helpers/Contents.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QDir>
#include <QProcess>
#include <QStandardPaths>

namespace tonearm::test {

using namespace Qt::StringLiterals;

namespace {

constexpr int patienceMilliseconds = 60000;

QString shippedFolder()
{
    return QDir(QCoreApplication::applicationDirPath()).filePath(u"../share/tonearm"_s);
}

} // namespace

ProgramRun runProgram(const QString &program, const QStringList &arguments,
                      const QProcessEnvironment &environment)
{
    QProcess process;
    process.setProcessEnvironment(environment);
    process.setStandardInputFile(QProcess::nullDevice());
    process.start(program, arguments);
    const bool isFinished = process.waitForFinished(patienceMilliseconds);
    const bool isWhole = isFinished && process.exitStatus() == QProcess::NormalExit;
    return {.exitCode = isWhole ? process.exitCode() : -1,
            .output = process.readAllStandardOutput(),
            .errors = process.readAllStandardError()};
}

QString buildConfiguration(const QString &program)
{
    return QString::fromUtf8(runProgram(program, {u"-hide_banner"_s, u"-buildconf"_s}).output);
}

QStringList words(const QString &text)
{
    return text.split(u' ', Qt::SkipEmptyParts);
}

QString shippedTool(const QString &name)
{
    return shippedFolder() + u"/bin/"_s + name;
}

QString systemTool(const QString &name)
{
    const QString path = QStandardPaths::findExecutable(name);
    EXPECT_FALSE(path.isEmpty()) << "the system has no " << name.toStdString();
    return path;
}

QString noticeField(const QString &notice, const QString &field)
{
    const QString aboutFFmpeg = notice.section(u"\n\n"_s, 0, 0);
    for (const QString &line : aboutFFmpeg.split(u'\n')) {
        if (line.startsWith(field + u": "_s))
            return line.sliced(field.size() + 2);
    }
    return {};
}

QString shippedNotice()
{
    return QString::fromUtf8(readFile(shippedFolder() + u"/audio-tools.txt"_s));
}

bool areShippedToolsBuilt()
{
    return noticeField(shippedNotice(), u"Origin"_s) == u"built"_s;
}

QList<Component> neededComponents()
{
    QList<Component> components;
    const QString list =
        QString::fromUtf8(readFile(QStringLiteral(TONEARM_SCRIPTS "/audio-tools/components")));
    for (const QString &line : list.split(u'\n')) {
        const QStringList fields = words(line.section(u'#', 0, 0));
        if (fields.size() >= 2)
            components.append({fields.at(0), fields.at(1), fields.last()});
    }
    return components;
}

} // namespace tonearm::test
