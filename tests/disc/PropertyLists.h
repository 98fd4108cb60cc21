// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QList>

namespace tonearm::test {

/// A property list in XML around the inner text of its root dictionary.
QByteArray xmlList(const QByteArray &rootContents);

/// The same list in binary form.
QByteArray binaryList(const QByteArray &xml);

/// A number under a key.
QByteArray number(const QByteArray &key, qint64 value);

/// A dictionary of a track array; both keys are there.
QByteArray trackEntry(qint64 point, qint64 startBlock);

/// A session dictionary of numbers and track entries; without entries it has no track array.
QByteArray sessionOf(const QByteArray &numbers, const QList<QByteArray> &entries);

/// A table of contents of these sessions.
QByteArray tocOf(const QList<QByteArray> &sessions);

} // namespace tonearm::test
