// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cddafs/CddafsError.h"

#include <QByteArray>
#include <QList>

#include <sys/types.h>

#include <optional>

namespace tonearm {

/// A command line that makes no sense.
class UsageError : public CddafsError
{
public:
    using CddafsError::CddafsError;
};

/// What the program is told to do.
struct CommandLine
{
    enum class Task { mount, showHelp, showVersion };

    Task task = Task::mount;
    /// A drive's device or a .cue file.
    QByteArray disc = {};
    /// An existing folder; empty if `parentFolder` is given.
    QByteArray mountPoint = {};
    /// Where a folder named like the disc is to be made as the mount point.
    QByteArray parentFolder = {};
    /// The program with whose end this one ends.
    std::optional<pid_t> parentProcess = {};
    /// Whether to stay until the volume is unmounted, whoever ends.
    bool isBackground = false;

    bool operator==(const CommandLine &) const = default;
};

/// Reads the arguments after the program's name. Throws UsageError.
CommandLine parseCommandLine(QList<QByteArray> arguments);

/// The text of --help.
const char *helpText();

} // namespace tonearm
