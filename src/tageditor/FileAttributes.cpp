// SPDX-License-Identifier: GPL-3.0-or-later
#include "tageditor/FileAttributes.h"

#include <QByteArray>
#include <QList>

#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>

namespace tonearm {

namespace {

constexpr mode_t permissionBits = 0777;
constexpr mode_t allModeBits = 07777;
constexpr auto accessControlList = "system.posix_acl_access";

[[noreturn]] void fail()
{
    throw std::system_error(errno, std::generic_category());
}

// The value of a call that tells the size it needs: listing attributes or reading one of them.
template <typename Call> QByteArray sizedReply(Call call)
{
    while (true) {
        const ssize_t size = call(nullptr, 0);
        if (size < 0)
            fail();
        // Asked again with no room, it would only tell the size once more.
        if (size == 0)
            return {};
        QByteArray reply(size, '\0');
        const ssize_t length = call(reply.data(), static_cast<std::size_t>(size));
        if (length >= 0)
            return reply.first(length);
        // Grown since it was measured.
        if (errno != ERANGE)
            fail();
    }
}

// Empty where the file system knows no such attributes.
QList<QByteArray> attributeNames(int file)
{
    if (::flistxattr(file, nullptr, 0) < 0 && errno == ENOTSUP)
        return {};
    const QByteArray names =
        sizedReply([file](char *reply, std::size_t size) { return ::flistxattr(file, reply, size); });
    QList<QByteArray> result = names.split('\0');
    result.removeAll(QByteArray());
    return result;
}

// The user's own attributes and the access control list have to come along. The rest belongs to the system,
// which decides who may set what.
bool isRequired(const QByteArray &name)
{
    return name.startsWith("user.") || name == accessControlList;
}

// What the system computes from a file's content is wrong for another content.
bool isOfContent(const QByteArray &name)
{
    return name == "security.ima" || name == "security.evm";
}

void copyAttribute(int from, int to, const QByteArray &name)
{
    const QByteArray value = sizedReply(
        [&](char *reply, std::size_t size) { return ::fgetxattr(from, name.constData(), reply, size); });
    if (::fsetxattr(to, name.constData(), value.constData(), static_cast<std::size_t>(value.size()), 0) != 0)
        fail();
}

void copyAttributeIfPossible(int from, int to, const QByteArray &name)
{
    try {
        copyAttribute(from, to, name);
    } catch (const std::system_error &) {
        if (isRequired(name))
            throw;
    }
}

bool copyOwner(const struct stat &source, int to)
{
    if (::fchown(to, source.st_uid, source.st_gid) == 0)
        return true;
    // An ordinary user can give a file to the groups that he is in.
    return ::fchown(to, static_cast<uid_t>(-1), source.st_gid) == 0 && source.st_uid == ::geteuid();
}

} // namespace

void copyAttributes(int from, int to)
{
    struct stat source = {};
    if (::fstat(from, &source) != 0)
        fail();
    // The owner first: a change of owner takes bits out of the mode.
    const bool hasOwner = copyOwner(source, to);
    const QList<QByteArray> names = attributeNames(from);
    // The new file may have got a list from its folder.
    if (!names.contains(QByteArray(accessControlList)))
        ::fremovexattr(to, accessControlList);
    for (const QByteArray &name : names) {
        if (!isOfContent(name))
            copyAttributeIfPossible(from, to, name);
    }
    // Running as the owner is for a file that still is the owner's. A file system without modes refuses.
    const mode_t kept = hasOwner ? allModeBits : permissionBits;
    if (::fchmod(to, source.st_mode & kept) != 0 && errno != EPERM && errno != ENOTSUP)
        fail();
}

} // namespace tonearm
