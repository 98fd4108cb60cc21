// SPDX-License-Identifier: GPL-3.0-or-later
#include "cddafs/Volume.h"

#include "cddafs/DiscNames.h"
#include "cddafs/TocPlist.h"
#include "cddafs/TrackReader.h"

namespace tonearm {

QList<VolumeFile> volumeFiles(const DiscLayout &layout, const QMap<int, QString> &titles)
{
    const QByteArray toc = tocPlist(layout);
    QList<VolumeFile> files = {{.name = ".TOC.plist", .size = toc.size(), .contents = toc}};
    for (const AudioTrack &track : audioTracks(layout)) {
        files.append({.name = trackFileName(track.number, titles.value(track.number)).toUtf8(),
                      .size = trackFileSize(track),
                      .track = track});
    }
    return files;
}

} // namespace tonearm
