// SPDX-License-Identifier: GPL-3.0-or-later
#include "disc/RipFiles.h"

#include "support/FileDescriptor.h"

#include <QFile>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>
#include <utility>

namespace tonearm {

namespace {

constexpr mode_t privateMode = 0600;

// The words for it stand behind a sentence that tells the track; a path would only be in their way.
[[noreturn]] void fail()
{
    throw std::system_error(errno, std::generic_category());
}

// Calls again what a signal has interrupted.
template <typename Call> auto uninterrupted(Call call)
{
    for (;;) {
        const auto result = call();
        if (result >= 0)
            return result;
        if (errno != EINTR)
            fail();
    }
}

FileDescriptor opened(const QString &path, int flags)
{
    const QByteArray name = QFile::encodeName(path);
    return FileDescriptor(
        uninterrupted([&] { return ::open(name.constData(), flags | O_CLOEXEC, privateMode); }));
}

class SystemReadableFile : public ReadableFile
{
public:
    explicit SystemReadableFile(FileDescriptor file)
        : m_file(std::move(file))
    {
    }

    QByteArray read(qint64 size) override
    {
        QByteArray bytes(size, Qt::Uninitialized);
        bytes.resize(uninterrupted(
            [&] { return ::read(m_file.number(), bytes.data(), static_cast<std::size_t>(size)); }));
        return bytes;
    }

    void seek(qint64 offset) override
    {
        if (::lseek(m_file.number(), offset, SEEK_SET) < 0)
            fail();
    }

private:
    FileDescriptor m_file;
};

class SystemWritableFile : public WritableFile
{
public:
    explicit SystemWritableFile(FileDescriptor file)
        : m_file(std::move(file))
    {
    }

    void write(QByteArrayView bytes) override
    {
        while (!bytes.isEmpty()) {
            bytes = bytes.sliced(uninterrupted([&] {
                return ::write(m_file.number(), bytes.data(), static_cast<std::size_t>(bytes.size()));
            }));
        }
    }

    void truncate(qint64 size) override
    {
        uninterrupted([&] { return ::ftruncate(m_file.number(), size); });
    }

private:
    FileDescriptor m_file;
};

} // namespace

bool SystemRipFiles::isReadable(const QString &path) const
{
    return ::access(QFile::encodeName(path).constData(), R_OK) == 0;
}

std::optional<qint64> SystemRipFiles::size(const QString &path) const
{
    struct stat status = {};
    if (::stat(QFile::encodeName(path).constData(), &status) != 0)
        return std::nullopt;
    return status.st_size;
}

std::unique_ptr<ReadableFile> SystemRipFiles::open(const QString &path) const
{
    return std::make_unique<SystemReadableFile>(opened(path, O_RDONLY));
}

std::unique_ptr<WritableFile> SystemRipFiles::create(const QString &path) const
{
    return std::make_unique<SystemWritableFile>(opened(path, O_WRONLY | O_CREAT | O_EXCL));
}

} // namespace tonearm
