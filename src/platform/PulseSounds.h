// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "encoding/PreviewSound.h"

#include <QByteArray>
#include <QString>

#include <memory>
#include <optional>

namespace tonearm {

class PulseLibrary;

/// Sounds played by the desktop's sound server, PipeWire or PulseAudio, by way of libpulse, which is loaded
/// for the first file. Main thread.
class PulseSounds : public PreviewSounds
{
public:
    struct Options
    {
        QString library = QStringLiteral("libpulse.so.0");
        /// As libpulse writes addresses; absent for the user's own server.
        std::optional<QByteArray> server = {};
    };

    PulseSounds();
    explicit PulseSounds(Options options);
    ~PulseSounds() override;

    /// Throws std::system_error if the file can't be opened, WavFileError if it is no WAV file with 16-bit
    /// samples, and PulseLibraryError. That there is no server shows after the start, as the sound's end.
    std::unique_ptr<PreviewSound> open(const QUrl &url, EndCallback onEnd) override;

private:
    Options m_options;
    std::shared_ptr<const PulseLibrary> m_library;
};

} // namespace tonearm
