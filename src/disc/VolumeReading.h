// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "disc/DiscInfo.h"
#include "disc/DiscTOC.h"
#include "disc/VolumeListing.h"

#include <QList>
#include <QStringList>
#include <QUrl>

#include <optional>

namespace tonearm {

/// The tracks of a disc that have a file in its volume; `names` are those of the files that aren't hidden.
/// Of two files for one track the later stands.
QList<DiscTrack> tracksOf(const DiscTOC &toc, const QUrl &volumeURL, const QStringList &names);

/// The device for readers that go past the volume, told by what the volume was mounted from; nothing if
/// it isn't known.
std::optional<QUrl> rawDeviceFor(const QString &source);

/// Reads a volume of type "cddafs". Throws DiscError, or std::system_error if a file of it can't be read.
/// Blocks.
DiscInfo readDisc(const MountedVolume &volume);

} // namespace tonearm
