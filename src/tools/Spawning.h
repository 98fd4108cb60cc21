// SPDX-License-Identifier: GPL-3.0-or-later
// What posix_spawn is told beside the program. Everything here throws std::system_error.
#pragma once

#include <spawn.h>

namespace tonearm {

/// What becomes of the descriptors in a child; the steps are taken in the order of the calls.
class SpawnDescriptors
{
public:
    SpawnDescriptors();
    ~SpawnDescriptors();
    SpawnDescriptors(const SpawnDescriptors &) = delete;
    SpawnDescriptors &operator=(const SpawnDescriptors &) = delete;

    void duplicate(int number, int asNumber);
    void openToWrite(const char *path, int asNumber);
    void closeFrom(int firstNumber);

    const posix_spawn_file_actions_t *get() const { return &m_actions; }

private:
    posix_spawn_file_actions_t m_actions = {};
};

/// The child starts with no signal blocked and none ignored, whatever this thread does.
class SpawnAttributes
{
public:
    /// `furtherFlags` are POSIX_SPAWN_SETSID and others that need no value.
    explicit SpawnAttributes(short furtherFlags = 0);
    ~SpawnAttributes();
    SpawnAttributes(const SpawnAttributes &) = delete;
    SpawnAttributes &operator=(const SpawnAttributes &) = delete;

    const posix_spawnattr_t *get() const { return &m_attributes; }

private:
    posix_spawnattr_t m_attributes = {};
};

} // namespace tonearm
