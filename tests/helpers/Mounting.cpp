// SPDX-License-Identifier: GPL-3.0-or-later
#include "helpers/Mounting.h"

#include "helpers/Media.h"

#include <QFile>
#include <QStandardPaths>
#include <QStringList>
#include <QTemporaryDir>

#include <fcntl.h>
#include <sys/mount.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

namespace tonearm::test {

using namespace Qt::StringLiterals;

namespace {

QString failure(const char *what)
{
    return QString::fromUtf8(what) + u": "_s + QString::fromUtf8(std::strerror(errno));
}

// As root, the kernel is asked by a mount that nobody serves.
std::optional<QString> reasonForRoot(int device)
{
    const QTemporaryDir folder;
    const QByteArray path = folder.path().toUtf8();
    const QByteArray options = "fd=" + QByteArray::number(device) + ",rootmode=40000,user_id=0,group_id=0";
    if (::mount("probe", path.constData(), "fuse", MS_NOSUID | MS_NODEV, options.constData()) != 0)
        return failure("mount");
    ::umount2(path.constData(), MNT_DETACH);
    return std::nullopt;
}

// The table writes blanks and backslashes as octal numbers.
QString unescaped(const QByteArray &field)
{
    QByteArray result;
    for (qsizetype at = 0; at < field.size(); ++at) {
        if (field[at] == '\\') {
            result.append(static_cast<char>(field.mid(at + 1, 3).toInt(nullptr, 8)));
            at += 3;
        } else {
            result.append(field[at]);
        }
    }
    return QString::fromUtf8(result);
}

} // namespace

std::optional<QString> reasonNotToMount()
{
    if (QStandardPaths::findExecutable(u"fusermount3"_s).isEmpty())
        return u"fusermount3 isn't installed"_s;
    const int device = ::open("/dev/fuse", O_RDWR | O_CLOEXEC);
    if (device < 0)
        return failure("/dev/fuse");
    const std::optional<QString> reason = ::geteuid() == 0 ? reasonForRoot(device) : std::nullopt;
    ::close(device);
    return reason;
}

std::optional<MountEntry> mountedOn(const QString &folder)
{
    QFile table(u"/proc/self/mountinfo"_s);
    if (!table.open(QIODevice::ReadOnly))
        return std::nullopt;
    const QList<QByteArray> lines = table.readAll().split('\n');
    for (const QByteArray &line : lines) {
        const QList<QByteArray> fields = line.split(' ');
        const qsizetype separator = fields.indexOf("-");
        if (separator < 0 || unescaped(fields[4]) != folder)
            continue;
        return MountEntry{.type = unescaped(fields[separator + 1]),
                          .source = unescaped(fields[separator + 2]),
                          .options = unescaped(fields[5])};
    }
    return std::nullopt;
}

void unmount(const QString &folder)
{
    outputOf(u"fusermount3"_s, {u"-u"_s, u"-z"_s, folder});
}

} // namespace tonearm::test
