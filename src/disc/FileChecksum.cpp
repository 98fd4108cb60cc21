// SPDX-License-Identifier: GPL-3.0-or-later
#include "disc/FileChecksum.h"

#include "disc/RipFiles.h"
#include "support/Cancellation.h"
#include "support/Digest.h"

#include <QByteArray>

namespace tonearm {

namespace {

constexpr qint64 chunkBytes = 1048576;

} // namespace

QString fileChecksum(const QString &path, const std::stop_token &stop)
{
    const std::unique_ptr<ReadableFile> file = SystemRipFiles().open(path);
    Digest digest(Digest::Algorithm::sha256);
    for (;;) {
        throwIfCancelled(stop);
        const QByteArray bytes = file->read(chunkBytes);
        if (bytes.isEmpty())
            return QString::fromLatin1(digest.finish().toHex());
        digest.add(bytes);
    }
}

} // namespace tonearm
