// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <optional>

namespace tonearm {

/// What a source's audio amounts to beside a CD's.
enum class AudioQuality { lossy, cd, highResolution };

/// What is known of a source's audio. Codec, profile and layout carry ffprobe's names.
struct AudioStreamInfo
{
    QString codecName = {};
    std::optional<QString> profile = {};
    std::optional<qint64> sampleRateHertz = {};
    /// Bits per sample.
    std::optional<qint64> bitDepth = {};
    std::optional<qint64> channelCount = {};
    std::optional<QString> channelLayout = {};
    std::optional<qint64> bitRateBitsPerSecond = {};

    QString codecDisplayName() const;

    /// Of a DTS stream only the Master Audio profiles are; without a profile it counts as lossy.
    bool isLossless() const;

    /// "48 kHz", "44.1 kHz".
    std::optional<QString> sampleRateText() const;

    /// "Stereo", "5.1", "6 channels".
    std::optional<QString> channelText() const;

    /// The stream in one line. A bit rate shows only where no bit depth is known.
    QString summaryLine() const;

    /// A lossless stream counts as CD quality up to 16 bits and 44.1 kHz, and where they aren't known.
    AudioQuality quality() const;

    /// What encoding to FLAC means for this source, as a sentence to go with the summary.
    QString qualityNote() const;

    bool operator==(const AudioStreamInfo &) const = default;
};

} // namespace tonearm
