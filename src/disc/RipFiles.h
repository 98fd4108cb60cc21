// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

#include <memory>
#include <optional>

namespace tonearm {

/// A file that is open for reading; closed with this object.
class ReadableFile
{
public:
    virtual ~ReadableFile() = default;

    /// Up to `size` bytes from where the file stands; none at its end. Throws std::system_error.
    virtual QByteArray read(qint64 size) = 0;

    /// Lets the next reading begin so many bytes from the start. Throws std::system_error.
    virtual void seek(qint64 offset) = 0;
};

/// A file that is open for writing; closed with this object.
class WritableFile
{
public:
    virtual ~WritableFile() = default;

    /// Writes all of it behind what is there. Throws std::system_error.
    virtual void write(QByteArrayView bytes) = 0;

    /// Cuts the file down to so many bytes. Throws std::system_error.
    virtual void truncate(qint64 size) = 0;
};

/// What the readers of discs ask of the file system. Everything blocks, for as long as a drive takes to
/// answer; callable from several threads at once.
class RipFiles
{
public:
    virtual ~RipFiles() = default;

    virtual bool isReadable(const QString &path) const = 0;

    /// Nothing if it can't be told.
    virtual std::optional<qint64> size(const QString &path) const = 0;

    /// Throws std::system_error.
    virtual std::unique_ptr<ReadableFile> open(const QString &path) const = 0;

    /// Makes an empty file that isn't there yet, for its user alone. Throws std::system_error.
    virtual std::unique_ptr<WritableFile> create(const QString &path) const = 0;
};

/// The real file system.
class SystemRipFiles : public RipFiles
{
public:
    bool isReadable(const QString &path) const override;
    std::optional<qint64> size(const QString &path) const override;
    std::unique_ptr<ReadableFile> open(const QString &path) const override;
    std::unique_ptr<WritableFile> create(const QString &path) const override;
};

} // namespace tonearm
