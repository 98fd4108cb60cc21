// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/WavFile.h"

#include <QFile>
#include <QFileInfo>
#include <QtEndian>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <system_error>
#include <utility>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

constexpr std::uint16_t pcm = 1;
constexpr std::uint16_t bitsPerSample = 16;
constexpr int maximumChannels = 32;                 // what a sound server takes
constexpr std::uint32_t maximumSampleRate = 384000; // in Hz, what a sound server takes

[[noreturn]] void fail()
{
    throw std::system_error(errno, std::generic_category());
}

FileDescriptor opened(const QString &path)
{
    FileDescriptor file(::open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC));
    if (file.number() < 0)
        fail();
    return file;
}

// Fewer bytes only at the end of the file. Throws std::system_error.
QByteArray readUpTo(const FileDescriptor &file, qint64 count)
{
    QByteArray bytes(count, Qt::Uninitialized);
    qint64 filled = 0;
    while (filled < count) {
        const ssize_t got =
            ::read(file.number(), bytes.data() + filled, static_cast<std::size_t>(count - filled));
        if (got < 0 && errno == EINTR)
            continue;
        if (got < 0)
            fail();
        if (got == 0)
            break;
        filled += got;
    }
    bytes.truncate(filled);
    return bytes;
}

} // namespace

// Reads the header's chunks up to the samples.
class WavFile::Header
{
public:
    Header(const FileDescriptor &file, QString name)
        : m_file(file)
        , m_name(std::move(name))
    {
        const QByteArray start = take(12);
        if (!start.startsWith("RIFF") || start.sliced(8) != "WAVE")
            throw WavFileError(m_name);
        while (!takeChunk()) {
        }
    }

    std::uint16_t channels = 0;
    std::uint32_t sampleRate = 0;
    /// As the file tells it.
    std::uint32_t dataBytes = 0;

private:
    QByteArray take(qint64 count) const
    {
        QByteArray bytes = readUpTo(m_file, count);
        if (bytes.size() < count)
            throw WavFileError(m_name);
        return bytes;
    }

    // Whether it was the samples' chunk, whose contents come next.
    bool takeChunk()
    {
        const QByteArray start = take(8);
        const auto size = qFromLittleEndian<std::uint32_t>(start.constData() + 4);
        if (start.startsWith("data")) {
            dataBytes = size;
            if (channels == 0)
                throw WavFileError(m_name);
            return true;
        }
        const off_t next = ::lseek(m_file.number(), 0, SEEK_CUR) + size + size % 2;
        if (start.startsWith("fmt "))
            takeFormat();
        if (::lseek(m_file.number(), next, SEEK_SET) < 0)
            fail();
        return false;
    }

    void takeFormat()
    {
        const QByteArray format = take(16);
        channels = qFromLittleEndian<std::uint16_t>(format.constData() + 2);
        sampleRate = qFromLittleEndian<std::uint32_t>(format.constData() + 4);
        const bool isKnown = qFromLittleEndian<std::uint16_t>(format.constData()) == pcm &&
                             qFromLittleEndian<std::uint16_t>(format.constData() + 14) == bitsPerSample;
        if (!isKnown || channels == 0 || channels > maximumChannels || sampleRate == 0 ||
            sampleRate > maximumSampleRate)
            throw WavFileError(m_name);
    }

    const FileDescriptor &m_file;
    QString m_name;
};

WavFileError::WavFileError(QString name)
    : fileName(std::move(name))
{
}

QString WavFileError::description() const
{
    return u"\"%1\" isn't a sound file that can be played."_s.arg(fileName);
}

WavFile::WavFile(const QString &path)
    : m_file(opened(path))
{
    const Header header(m_file, QFileInfo(path).fileName());
    m_channels = static_cast<std::uint8_t>(header.channels);
    m_sampleRate = header.sampleRate;
    struct stat file = {};
    const off_t position = ::lseek(m_file.number(), 0, SEEK_CUR);
    if (::fstat(m_file.number(), &file) != 0)
        fail();
    const qint64 present = std::min<qint64>(header.dataBytes, file.st_size - position);
    m_remaining = present - present % bytesPerFrame();
}

QByteArray WavFile::read(qint64 maximumBytes)
{
    const qint64 wanted = std::min(m_remaining, maximumBytes);
    QByteArray bytes;
    try {
        bytes = readUpTo(m_file, wanted - wanted % bytesPerFrame());
    } catch (const std::system_error &) {
        m_remaining = 0;
    }
    bytes.chop(bytes.size() % bytesPerFrame());
    m_remaining = bytes.isEmpty() ? 0 : m_remaining - bytes.size();
    return bytes;
}

} // namespace tonearm
