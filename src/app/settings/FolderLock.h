// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "support/FileDescriptor.h"

#include <QString>

#include <chrono>

namespace tonearm {

/// Keeps other programs that take the same lock out of a folder's files for as long as it lives.
///
/// The lock lies on the folder itself: it leaves no file behind, and the system drops it when its
/// holder dies.
class FolderLock
{
public:
    /// Waits at most as long as the patience lasts; see `isRefused`.
    FolderLock(const QString &folder, std::chrono::milliseconds patience);

    /// Whether somebody else held the lock all the while. False on a file system that knows no locks:
    /// nobody is kept out there, and nobody is held up.
    bool isRefused() const { return m_isRefused; }

private:
    FileDescriptor m_descriptor;
    bool m_isRefused = false;
};

} // namespace tonearm
