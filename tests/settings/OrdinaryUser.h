// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <sys/types.h>

namespace tonearm::test {

/// While it lives, permissions of files hold for this process even if it is root's; a folder that is
/// named at the start belongs to it as it would to its user.
class OrdinaryUser
{
public:
    explicit OrdinaryUser(const QString &folder);
    ~OrdinaryUser();
    OrdinaryUser(const OrdinaryUser &) = delete;
    OrdinaryUser &operator=(const OrdinaryUser &) = delete;

private:
    uid_t m_before;
};

} // namespace tonearm::test
