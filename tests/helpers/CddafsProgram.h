// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QProcess>
#include <QString>
#include <QStringList>

namespace tonearm::test {

/// The path of the built tonearm-cddafs.
QString cddafsPath();

/// A running tonearm-cddafs, ended with this object.
class CddafsProgram
{
public:
    explicit CddafsProgram(const QStringList &arguments);
    ~CddafsProgram();

    /// Waits for the mount point that it prints; an empty text if it ends without one.
    QString waitForMount();

    /// Waits for its end and returns its exit code; -1 if it doesn't end, or was killed by a signal.
    int waitForEnd();

    /// As SIGTERM does.
    void terminate() { m_process.terminate(); }

    /// As SIGKILL does.
    void kill() { m_process.kill(); }

    QByteArray errors() { return m_process.readAllStandardError(); }

private:
    QProcess m_process;
};

} // namespace tonearm::test
