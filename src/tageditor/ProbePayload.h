// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QList>
#include <QMap>
#include <QString>

#include <optional>

namespace tonearm {

/// What of ffprobe's reply about a file's format and streams is used.
struct ProbePayload
{
    struct Stream
    {
        std::optional<QString> codecType;
        /// In hertz; "0" if ffprobe has found nothing to know it from.
        std::optional<QString> sampleRate;
        std::optional<qint64> attachedPic;
        std::optional<qint64> width;
        std::optional<qint64> height;

        bool operator==(const Stream &) const = default;
    };

    struct Format
    {
        std::optional<QString> formatName;
        std::optional<QMap<QString, QString>> tags;

        bool operator==(const Format &) const = default;
    };

    std::optional<QList<Stream>> streams;
    std::optional<Format> format;

    /// Throws JsonError if the reply is no JSON object or a value in it has the wrong type.
    static ProbePayload decoded(const QByteArray &reply);

    qsizetype audioStreamCount() const;

    /// Whether there are audio streams and no sound was found in any. To ffprobe an empty file is FLAC if its
    /// name says so, and a text too.
    bool lacksSound() const;

    bool operator==(const ProbePayload &) const = default;
};

} // namespace tonearm
