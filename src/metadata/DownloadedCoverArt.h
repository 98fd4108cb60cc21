// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "workflow/records/MetadataSource.h"

#include <QByteArray>
#include <QString>

namespace tonearm {

/// A cover as a service sent it.
struct DownloadedCoverArt
{
    QByteArray data;
    /// "jpg" or "png".
    QString fileExtension;
    MetadataSource source = MetadataSource::musicBrainz;

    bool operator==(const DownloadedCoverArt &) const = default;
};

} // namespace tonearm
