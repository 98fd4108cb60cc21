// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "support/FileDescriptor.h"

#include <QByteArray>

#include <sys/types.h>

namespace tonearm {

/// Sees to it that no mount outlives this program, even if that is killed: a shell waits at the other end
/// of a pipe and unmounts when the pipe closes without a word.
///
/// libfuse's own option for this (auto_unmount) does nothing before version 3.15 for users other than root.
class MountGuard
{
public:
    /// With `removesFolder` the mount point goes too. Throws CddafsError and std::system_error.
    MountGuard(const QByteArray &mountPoint, bool removesFolder);
    /// Lets the shell end without a deed: the volume is unmounted.
    ~MountGuard();
    MountGuard(const MountGuard &) = delete;
    MountGuard &operator=(const MountGuard &) = delete;

private:
    Pipe m_pipe;
    pid_t m_shell = 0;
};

} // namespace tonearm
