// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>

#include <cstdint>
#include <optional>

namespace tonearm::test {

/// What the header of a WAV file is to tell.
struct WavRecipe
{
    std::uint16_t format = 1;
    std::uint16_t channels = 2;
    std::uint32_t sampleRate = 44100;
    std::uint16_t bits = 16;
    /// The length of the samples, in bytes, if it isn't to be the truth.
    std::optional<std::uint32_t> dataBytes = {};
    /// What stands between the format and the samples.
    QByteArray chunks = {};
};

/// A WAV file's bytes.
QByteArray wavBytes(const QByteArray &samples, const WavRecipe &recipe = {});

/// A chunk of a WAV file.
QByteArray wavChunk(const QByteArray &name, const QByteArray &contents);

/// Sound without any repetition: so many seconds at 44.1 kHz, stereo, 16 bits.
QByteArray noise(double seconds);

} // namespace tonearm::test
