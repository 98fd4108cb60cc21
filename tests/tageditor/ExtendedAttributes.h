// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QList>
#include <QMap>
#include <QString>

#include <cstdint>

namespace tonearm::test {

/// The extended attributes of a file, access control lists among them, by name.
QMap<QByteArray, QByteArray> extendedAttributes(const QString &path);

/// Sets one; false where the file system knows no such attributes.
bool setExtendedAttribute(const QString &path, const QByteArray &name, const QByteArray &value);

/// An access control list that lets one more user do what `permissions` say (4 reads, 2 writes), as the
/// system keeps it.
QByteArray accessControlList(std::uint32_t user, std::uint16_t permissions);

} // namespace tonearm::test
