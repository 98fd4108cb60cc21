// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/OrdinaryUser.h"

#include <gtest/gtest.h>

#include <QFile>

#include <unistd.h>

namespace tonearm::test {

namespace {

constexpr uid_t nobody = 65534;
constexpr gid_t sameGroup = static_cast<gid_t>(-1);

} // namespace

OrdinaryUser::OrdinaryUser(const QString &folder)
    : m_before(::geteuid())
{
    if (m_before != 0)
        return;
    EXPECT_EQ(::chown(QFile::encodeName(folder).constData(), nobody, sameGroup), 0);
    EXPECT_EQ(::seteuid(nobody), 0);
}

OrdinaryUser::~OrdinaryUser()
{
    EXPECT_EQ(::seteuid(m_before), 0);
}

} // namespace tonearm::test
