// SPDX-License-Identifier: GPL-3.0-or-later
#include "helpers/Contents.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>

namespace tonearm::test {

void writeFile(const QString &path, const QByteArray &contents)
{
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly)) << path.toStdString();
    ASSERT_EQ(file.write(contents), contents.size()) << path.toStdString();
}

void writeScript(const QString &path, const QByteArray &body)
{
    writeFile(path, "#!/bin/sh\n" + body + "\n");
    ASSERT_TRUE(QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
}

QByteArray readFile(const QString &path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return file.readAll();
}

QStringList namesIn(const QString &folder)
{
    return QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                                  QDir::Name);
}

} // namespace tonearm::test
