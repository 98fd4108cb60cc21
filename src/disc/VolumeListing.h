// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QString>
#include <QUrl>

namespace tonearm {

/// A mounted volume as the system lists it.
struct MountedVolume
{
    /// The folder that it is mounted on.
    QUrl url;
    /// The file system's type; for one in user space its own name, without "fuse." in front.
    QString type;
    /// What is mounted: a device, for an image of a disc the path of its .cue file.
    QString source;

    bool operator==(const MountedVolume &) const = default;
};

/// The mounted volumes of the system.
class VolumeListing
{
public:
    virtual ~VolumeListing() = default;

    /// In the order of the mount table. Throws std::system_error if that can't be read. Called on threads of
    /// the services; blocks, but asks nothing of the volumes themselves.
    virtual QList<MountedVolume> volumes() const = 0;

protected:
    VolumeListing() = default;
    VolumeListing(const VolumeListing &) = default;
    VolumeListing &operator=(const VolumeListing &) = default;
};

} // namespace tonearm
