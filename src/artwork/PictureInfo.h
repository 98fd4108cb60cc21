// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QSize>
#include <QString>

#include <optional>

namespace tonearm {

/// The formats that FLAC tags carry.
enum class PictureFormat { jpeg, png };

/// What a picture's header tells of it.
struct PictureInfo
{
    PictureFormat format = PictureFormat::jpeg;
    /// In pixels as stored, before the orientation is applied; both sides are at least 1.
    QSize storedSize = {};
    /// Whether the file asks to be turned or mirrored for showing; only a JPEG is asked.
    bool isTurned = false;
    /// What a decoder holds in memory for the whole picture, however small it is wanted, in bytes.
    qint64 wholePictureBytes = 0;

    bool operator==(const PictureInfo &) const = default;
};

/// Reads the header of a picture. The file's content decides what it is, never its name. Nothing if it is no
/// JPEG or PNG, can't be opened, or has no size: tags carry no other formats, so none is asked for, and no
/// decoder of another format ever sees a foreign file. Blocks.
std::optional<PictureInfo> pictureInfo(const QString &path);

} // namespace tonearm
