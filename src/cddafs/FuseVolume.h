// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cddafs/SectorSource.h"
#include "cddafs/TrackReader.h"
#include "cddafs/Volume.h"

#include <QByteArray>
#include <QList>

#include <sys/types.h>

#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <optional>

struct fuse;

namespace tonearm {

/// A disc's files as a mounted FUSE volume. It is read-only and for the user alone who mounts it.
class FuseVolume
{
public:
    /// Mounts the volume. `source` is what the mount table gives as its source; `sectors` has to outlive
    /// this. Throws CddafsError.
    FuseVolume(QList<VolumeFile> files, SectorSource &sectors, const QByteArray &source,
               const QByteArray &mountPoint);
    /// Unmounts it, also if somebody still has a file of it open.
    ~FuseVolume();
    FuseVolume(const FuseVolume &) = delete;
    FuseVolume &operator=(const FuseVolume &) = delete;

    /// Lets the program go on as a child in the background; the caller's process ends.
    void goToBackground();

    /// Serves the volume until it is unmounted or the program gets SIGTERM, SIGINT or SIGHUP.
    void serve();

    /// The file at a path of the volume; null if there is none.
    const VolumeFile *find(const QByteArray &path) const;

    const QList<VolumeFile> &files() const { return m_files; }

    /// A track as somebody who opens its file reads it: until that is closed, or the volume goes.
    /// Thread-safe.
    TrackReader &open(const AudioTrack &track);
    void close(const TrackReader *reader);

private:
    struct Destroy
    {
        void operator()(fuse *handle) const;
    };

    const QList<VolumeFile> m_files;
    SectorSource &m_sectors;
    // By path.
    std::map<QByteArray, const VolumeFile *> m_byPath;
    std::mutex m_lock;
    // Of the files that are open: one that is so when the volume goes is never closed.
    std::map<const TrackReader *, std::unique_ptr<TrackReader>> m_readers;
    std::unique_ptr<fuse, Destroy> m_fuse;
};

} // namespace tonearm
