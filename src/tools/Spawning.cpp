// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/Spawning.h"

#include <fcntl.h>

#include <csignal>
#include <system_error>

namespace tonearm {

namespace {

void check(int error)
{
    if (error != 0)
        throw std::system_error(error, std::generic_category());
}

} // namespace

SpawnDescriptors::SpawnDescriptors()
{
    check(::posix_spawn_file_actions_init(&m_actions));
}

SpawnDescriptors::~SpawnDescriptors()
{
    ::posix_spawn_file_actions_destroy(&m_actions);
}

void SpawnDescriptors::duplicate(int number, int asNumber)
{
    check(::posix_spawn_file_actions_adddup2(&m_actions, number, asNumber));
}

void SpawnDescriptors::openToWrite(const char *path, int asNumber)
{
    check(::posix_spawn_file_actions_addopen(&m_actions, asNumber, path, O_WRONLY, 0));
}

void SpawnDescriptors::closeFrom(int firstNumber)
{
    check(::posix_spawn_file_actions_addclosefrom_np(&m_actions, firstNumber));
}

SpawnAttributes::SpawnAttributes(short furtherFlags)
{
    check(::posix_spawnattr_init(&m_attributes));
    sigset_t none;
    sigset_t all;
    sigemptyset(&none);
    sigfillset(&all);
    check(::posix_spawnattr_setsigmask(&m_attributes, &none));
    check(::posix_spawnattr_setsigdefault(&m_attributes, &all));
    const int flags = POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF | furtherFlags;
    check(::posix_spawnattr_setflags(&m_attributes, static_cast<short>(flags)));
}

SpawnAttributes::~SpawnAttributes()
{
    ::posix_spawnattr_destroy(&m_attributes);
}

} // namespace tonearm
