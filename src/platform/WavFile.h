// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "support/DescribedError.h"
#include "support/FileDescriptor.h"

#include <QByteArray>
#include <QString>

#include <cstdint>

namespace tonearm {

/// A file that is no WAV file, or one with other than 16-bit samples.
class WavFileError : public DescribedError
{
public:
    explicit WavFileError(QString name);

    QString description() const override;

    /// The last path component.
    QString fileName;

    bool operator==(const WavFileError &other) const { return fileName == other.fileName; }
};

/// The samples of a WAV file with 16 bits each, little-endian, read from the first to the last.
class WavFile
{
public:
    /// Opens the file and reads its header, no more. Throws std::system_error and WavFileError.
    explicit WavFile(const QString &path);

    std::uint8_t channels() const { return m_channels; }

    /// In Hz.
    std::uint32_t sampleRate() const { return m_sampleRate; }

    /// One sample of each channel.
    std::uint32_t bytesPerFrame() const { return m_channels * 2U; }

    bool isAtEnd() const { return m_remaining == 0; }

    /// The next whole frames, so many bytes at most. Nothing comes after the last, nor after a failure.
    QByteArray read(qint64 maximumBytes);

private:
    class Header;

    FileDescriptor m_file;
    std::uint8_t m_channels = 0;
    std::uint32_t m_sampleRate = 0;
    qint64 m_remaining = 0;
};

} // namespace tonearm
