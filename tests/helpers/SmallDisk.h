// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace tonearm::test {

/// A disk in memory, mounted on a folder for the life of this object. Needs the right to mount, which a
/// test has to ask for: `isMounted`.
class SmallDisk
{
public:
    SmallDisk(QString folder, int kilobytes);
    ~SmallDisk();
    SmallDisk(const SmallDisk &) = delete;
    SmallDisk &operator=(const SmallDisk &) = delete;

    bool isMounted() const { return m_isMounted; }

    /// Nothing can be written from here on; nor by root. Fails the test if that doesn't work.
    void makeReadOnly() const;

private:
    QString m_folder;
    bool m_isMounted;
};

} // namespace tonearm::test
