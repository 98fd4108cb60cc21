// SPDX-License-Identifier: GPL-3.0-or-later
#include "helpers/PrivateBus.h"

#include "helpers/Contents.h"

#include <gtest/gtest.h>

#include <QUuid>

#include <csignal>

namespace tonearm::test {

using namespace Qt::StringLiterals;

namespace {

constexpr int patienceMilliseconds = 20000;

// Everybody may own any name and call anybody; no service is started on demand.
constexpr const char *configuration = R"(<busconfig>
  <auth>EXTERNAL</auth>
  <policy context="default">
    <allow send_destination="*" eavesdrop="true"/>
    <allow eavesdrop="true"/>
    <allow own="*"/>
  </policy>
)";

} // namespace

PrivateBus::PrivateBus()
{
    const QString file = m_folder.filePath(u"bus.conf"_s);
    writeFile(file, configuration + "  <listen>unix:path="_ba + m_folder.filePath(u"bus"_s).toUtf8() +
                        "</listen>\n</busconfig>\n");
    m_daemon.start(u"dbus-daemon"_s, {u"--config-file="_s + file, u"--nofork"_s, u"--print-address"_s});
    while (!m_daemon.canReadLine() && m_daemon.waitForReadyRead(patienceMilliseconds)) {
    }
    m_address = QString::fromUtf8(m_daemon.readLine()).trimmed();
    EXPECT_FALSE(m_address.isEmpty()) << m_daemon.readAllStandardError().toStdString();
}

PrivateBus::~PrivateBus()
{
    for (const QString &name : m_connections)
        QDBusConnection::disconnectFromBus(name);
    m_daemon.kill();
    m_daemon.waitForFinished(patienceMilliseconds);
}

QDBusConnection PrivateBus::connect()
{
    m_connections.append(QUuid::createUuid().toString());
    return QDBusConnection::connectToBus(m_address, m_connections.last());
}

void PrivateBus::freeze()
{
    ::kill(static_cast<pid_t>(m_daemon.processId()), SIGSTOP);
}

void PrivateBus::thaw()
{
    ::kill(static_cast<pid_t>(m_daemon.processId()), SIGCONT);
}

} // namespace tonearm::test
