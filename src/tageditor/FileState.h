// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <sys/stat.h>

namespace tonearm {

/// What tells a file that has been changed, or replaced by another, from the one that was there.
struct FileState
{
    dev_t device = 0;
    ino_t inode = 0;
    off_t size = 0;
    time_t modifiedSeconds = 0;
    long modifiedNanoseconds = 0;

    static FileState of(const struct stat &found)
    {
        return {.device = found.st_dev,
                .inode = found.st_ino,
                .size = found.st_size,
                .modifiedSeconds = found.st_mtim.tv_sec,
                .modifiedNanoseconds = found.st_mtim.tv_nsec};
    }

    bool operator==(const FileState &) const = default;
};

} // namespace tonearm
