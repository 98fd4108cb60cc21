// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QMap>
#include <QString>
#include <QStringList>

namespace tonearm::test {

/// Runs a piece of Python with the system's interpreter, where mutagen lies: a tagger that shares no code
/// with ffmpeg. It finds its arguments in a[1], a[2] ...; returns what it prints. Fails the test if it fails.
QByteArray python(const QByteArray &code, const QStringList &arguments);

/// The tags that mutagen finds, by names that are the same for all containers ("tracknumber", "albumartist").
QMap<QString, QStringList> mutagenTags(const QString &path);

/// The SHA-256 of each picture that mutagen finds, in lower-case hexadecimal.
QStringList mutagenPictures(const QString &path);

/// The MD5 of the packets of all of a file's audio streams, as the system's ffmpeg copies them.
QByteArray audioPacketDigest(const QString &path);

} // namespace tonearm::test
