// SPDX-License-Identifier: GPL-3.0-or-later
#include "helpers/SoundServer.h"

#include "helpers/Await.h"
#include "helpers/Contents.h"

#include <gtest/gtest.h>

#include <QProcessEnvironment>
#include <QStandardPaths>

namespace tonearm::test {

using namespace Qt::StringLiterals;

namespace {

constexpr int patienceMilliseconds = 20000;

} // namespace

std::optional<QString> reasonForSilence()
{
    for (const QString &program : {u"pulseaudio"_s, u"pactl"_s, u"parec"_s})
        if (QStandardPaths::findExecutable(program).isEmpty())
            return program + u" isn't installed"_s;
    return std::nullopt;
}

SoundServer::SoundServer()
{
    // Without rewinds: what a rewind replaces is missing from the recording.
    writeFile(path(u"server.pa"_s),
              "load-module module-null-sink sink_name=null rate=44100 channels=2 format=s16le norewinds=1\n"
              "load-module module-native-protocol-unix auth-anonymous=1 socket="_ba +
                  path(u"socket"_s).toUtf8() + '\n');
    start(m_server, u"pulseaudio"_s,
          {u"-n"_s, u"--daemonize=no"_s, u"--use-pid-file=no"_s, u"--exit-idle-time=-1"_s,
           u"--disable-shm=yes"_s, u"-F"_s, path(u"server.pa"_s)});
    EXPECT_TRUE(eventually([this] { return QFile::exists(path(u"socket"_s)); }, patienceMilliseconds))
        << m_server.readAllStandardError().toStdString();

    m_recorder.setStandardOutputFile(path(u"recording"_s));
    start(m_recorder, u"parec"_s,
          {u"-s"_s, QString::fromUtf8(address()), u"-d"_s, u"null.monitor"_s, u"--raw"_s,
           u"--latency-msec=20"_s, u"--rate=44100"_s, u"--channels=2"_s, u"--format=s16le"_s});
    EXPECT_TRUE(eventually([this] { return !recording().isEmpty(); }, patienceMilliseconds))
        << m_recorder.readAllStandardError().toStdString();
}

SoundServer::~SoundServer()
{
    kill();
    m_recorder.kill();
    m_recorder.waitForFinished(patienceMilliseconds);
}

QByteArray SoundServer::address() const
{
    return "unix:" + path(u"socket"_s).toUtf8();
}

QByteArray SoundServer::recording() const
{
    return readFile(path(u"recording"_s));
}

bool SoundServer::isInUse() const
{
    QProcess pactl;
    start(pactl, u"pactl"_s,
          {u"-s"_s, QString::fromUtf8(address()), u"list"_s, u"short"_s, u"sink-inputs"_s});
    EXPECT_TRUE(pactl.waitForFinished(patienceMilliseconds));
    EXPECT_EQ(pactl.exitCode(), 0) << pactl.readAllStandardError().toStdString();
    return !pactl.readAllStandardOutput().isEmpty();
}

void SoundServer::kill()
{
    m_server.kill();
    m_server.waitForFinished(patienceMilliseconds);
}

// The machine's own server and configuration stay out of it.
void SoundServer::start(QProcess &process, const QString &program, const QStringList &arguments) const
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const QString &variable : {u"HOME"_s, u"XDG_RUNTIME_DIR"_s, u"XDG_CONFIG_HOME"_s})
        environment.insert(variable, m_folder.path());
    for (const QString &variable : {u"DISPLAY"_s, u"PULSE_SERVER"_s, u"DBUS_SESSION_BUS_ADDRESS"_s})
        environment.remove(variable);
    process.setProcessEnvironment(environment);
    process.start(program, arguments);
}

} // namespace tonearm::test
