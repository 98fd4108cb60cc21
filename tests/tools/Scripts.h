// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QTemporaryDir>
#include <QUrl>

namespace tonearm::test {

/// A folder of shell scripts that stand for tools. Each can use the folder as its "$here".
class Scripts
{
public:
    /// Writes an executable script and returns its location.
    QUrl add(const QString &name, const QByteArray &body) const;

    QString path(const QString &name) const { return m_folder.filePath(name); }

    bool has(const QString &name) const;

    /// Makes a file that a script can wait for.
    void touch(const QString &name) const;

    /// Runs the event loop until a script has written a number and a line feed into a file; returns it.
    int numberIn(const QString &name) const;

private:
    QTemporaryDir m_folder;
};

} // namespace tonearm::test
