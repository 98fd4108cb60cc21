// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

namespace tonearm::test {

/// Writes a file, or fails the test.
void writeFile(const QString &path, const QByteArray &contents);

/// Writes an executable shell script; `body` goes below the interpreter's line.
void writeScript(const QString &path, const QByteArray &body);

/// Reads a whole file; fails the test if it can't.
QByteArray readFile(const QString &path);

/// The names in a folder, hidden ones too, sorted.
QStringList namesIn(const QString &folder);

} // namespace tonearm::test
