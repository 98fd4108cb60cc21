// SPDX-License-Identifier: GPL-3.0-or-later
#include "tageditor/ExtendedAttributes.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QtEndian>

#include <sys/xattr.h>

namespace tonearm::test {

namespace {

constexpr std::uint32_t listVersion = 2;
constexpr std::uint32_t nobodyInParticular = 0xFFFFFFFF;
constexpr std::uint16_t readAndWrite = 6;

template <typename Number> void appendLittleEndian(QByteArray &bytes, Number number)
{
    const Number stored = qToLittleEndian(number);
    bytes.append(reinterpret_cast<const char *>(&stored), sizeof stored);
}

void appendEntry(QByteArray &list, std::uint16_t tag, std::uint16_t permissions, std::uint32_t identifier)
{
    appendLittleEndian(list, tag);
    appendLittleEndian(list, permissions);
    appendLittleEndian(list, identifier);
}

} // namespace

QMap<QByteArray, QByteArray> extendedAttributes(const QString &path)
{
    constexpr std::size_t room = 65536;
    const QByteArray file = QFile::encodeName(path);
    QByteArray buffer(room, '\0');
    const ssize_t length = ::listxattr(file.constData(), buffer.data(), room);
    EXPECT_GE(length, 0);
    QMap<QByteArray, QByteArray> result;
    for (const QByteArray &name : buffer.first(length).split('\0')) {
        if (name.isEmpty())
            continue;
        QByteArray value(room, '\0');
        const ssize_t size = ::getxattr(file.constData(), name.constData(), value.data(), room);
        EXPECT_GE(size, 0) << name.toStdString();
        result.insert(name, value.first(size));
    }
    return result;
}

bool setExtendedAttribute(const QString &path, const QByteArray &name, const QByteArray &value)
{
    return ::setxattr(QFile::encodeName(path).constData(), name.constData(), value.constData(),
                      static_cast<std::size_t>(value.size()), 0) == 0;
}

QByteArray accessControlList(std::uint32_t user, std::uint16_t permissions)
{
    // The tags of the owner, another user, the group, the mask, and everyone else.
    QByteArray list;
    appendLittleEndian(list, listVersion);
    appendEntry(list, 0x01, readAndWrite, nobodyInParticular);
    appendEntry(list, 0x02, permissions, user);
    appendEntry(list, 0x04, 0, nobodyInParticular);
    appendEntry(list, 0x10, readAndWrite, nobodyInParticular);
    appendEntry(list, 0x20, 0, nobodyInParticular);
    return list;
}

} // namespace tonearm::test
