// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <optional>

namespace tonearm::test {

/// Why this machine can't mount FUSE volumes; nothing if it can.
std::optional<QString> reasonNotToMount();

/// A line of the mount table.
struct MountEntry
{
    QString type;
    QString source;
    QString options;
};

/// What is mounted on a folder, if anything is.
std::optional<MountEntry> mountedOn(const QString &folder);

/// Unmounts a volume as a person does.
void unmount(const QString &folder);

} // namespace tonearm::test

/// For the start of a test that mounts something.
#define SKIP_WITHOUT_MOUNTS()                                                                                \
    do {                                                                                                     \
        if (const auto reason = tonearm::test::reasonNotToMount())                                           \
            GTEST_SKIP() << reason->toStdString();                                                           \
    } while (false)
