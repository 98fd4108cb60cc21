// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/AtomicFile.h"

#include "support/FileDescriptor.h"

#include <QFile>
#include <QFileInfo>
#include <QUuid>

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <system_error>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

// A new file's mode; the process's mask takes its share of it.
constexpr mode_t ordinaryMode = 0666;

[[noreturn]] void fail(const QString &path)
{
    throw std::system_error(errno, std::generic_category(), path.toStdString());
}

bool writeAll(const FileDescriptor &file, QByteArrayView contents)
{
    while (!contents.isEmpty()) {
        const ssize_t count =
            ::write(file.number(), contents.data(), static_cast<std::size_t>(contents.size()));
        if (count < 0 && errno != EINTR)
            return false;
        if (count > 0)
            contents = contents.sliced(count);
    }
    return true;
}

// Short and unguessable: the file's own name may already be as long as a name can be.
QString temporaryPathBeside(const QString &path)
{
    return QFileInfo(path).path() + u"/.tonearm-"_s + QUuid::createUuid().toString(QUuid::WithoutBraces);
}

} // namespace

void writeAtomically(const QString &path, QByteArrayView contents)
{
    const QByteArray target = QFile::encodeName(path);
    const QByteArray temporary = QFile::encodeName(temporaryPathBeside(path));
    const FileDescriptor file(
        ::open(temporary.constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, ordinaryMode));
    if (file.number() < 0)
        fail(path);
    if (writeAll(file, contents) && ::fsync(file.number()) == 0 &&
        std::rename(temporary.constData(), target.constData()) == 0)
        return;
    const int reason = errno;
    ::unlink(temporary.constData());
    errno = reason;
    fail(path);
}

} // namespace tonearm
