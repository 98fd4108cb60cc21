// SPDX-License-Identifier: GPL-3.0-or-later
#include "helpers/StandInTools.h"

#include "helpers/Await.h"
#include "helpers/Contents.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <csignal>

namespace tonearm::test {

using namespace Qt::StringLiterals;

StandInTools::StandInTools()
{
    EXPECT_TRUE(QDir(m_folder.path()).mkdir(u"bin"_s));
}

void StandInTools::add(const QString &name, const QByteArray &body)
{
    writeScript(path(u"bin/"_s + name), "here='" + QFile::encodeName(m_folder.path()) + "'\n" + body);
}

void StandInTools::addBytes(const QString &name, const QByteArray &contents)
{
    const QString place = path(u"bin/"_s + name);
    writeFile(place, contents);
    EXPECT_TRUE(QFile::setPermissions(place, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
}

bool StandInTools::waitFor(const QString &name) const
{
    return eventually([&] { return QFileInfo::exists(path(name)); });
}

bool StandInTools::isRunning() const
{
    const int process = readFile(path(u"pid"_s)).trimmed().toInt();
    EXPECT_GT(process, 1);
    return ::kill(process, 0) == 0;
}

} // namespace tonearm::test
