// SPDX-License-Identifier: GPL-3.0-or-later
#include "helpers/CddafsProgram.h"

#include <QCoreApplication>

namespace tonearm::test {

using namespace Qt::StringLiterals;

namespace {

constexpr int patienceMilliseconds = 20000;

} // namespace

QString cddafsPath()
{
    return QCoreApplication::applicationDirPath() + u"/tonearm-cddafs";
}

CddafsProgram::CddafsProgram(const QStringList &arguments)
{
    m_process.start(cddafsPath(), arguments);
}

CddafsProgram::~CddafsProgram()
{
    if (m_process.state() == QProcess::NotRunning)
        return;
    m_process.terminate();
    if (!m_process.waitForFinished(patienceMilliseconds))
        m_process.kill();
    m_process.waitForFinished(patienceMilliseconds);
}

QString CddafsProgram::waitForMount()
{
    while (!m_process.canReadLine() && m_process.waitForReadyRead(patienceMilliseconds)) {
    }
    return QString::fromUtf8(m_process.readLine().chopped(1));
}

int CddafsProgram::waitForEnd()
{
    const bool hasEnded =
        m_process.state() == QProcess::NotRunning || m_process.waitForFinished(patienceMilliseconds);
    return hasEnded && m_process.exitStatus() == QProcess::NormalExit ? m_process.exitCode() : -1;
}

} // namespace tonearm::test
