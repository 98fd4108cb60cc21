// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/Scripts.h"

#include "helpers/Await.h"
#include "helpers/Contents.h"

#include <gtest/gtest.h>

#include <QFile>

namespace tonearm::test {

QUrl Scripts::add(const QString &name, const QByteArray &body) const
{
    writeScript(path(name), "here='" + QFile::encodeName(m_folder.path()) + "'\n" + body);
    return QUrl::fromLocalFile(path(name));
}

bool Scripts::has(const QString &name) const
{
    return QFile::exists(path(name));
}

void Scripts::touch(const QString &name) const
{
    writeFile(path(name), {});
}

int Scripts::numberIn(const QString &name) const
{
    const bool isThere = eventually([&] { return has(name) && readFile(path(name)).endsWith('\n'); });
    EXPECT_TRUE(isThere) << name.toStdString();
    return isThere ? readFile(path(name)).trimmed().toInt() : 0;
}

} // namespace tonearm::test
