// SPDX-License-Identifier: GPL-3.0-or-later
// Prepares a picture in a process of its own and prints what became of it and the most memory it took:
//   <picture> <budget in bytes> <folder for the copy>
// The line is "<width>x<height> <bytes> <peak in kilobytes>", or "- - <peak>" if it can't be shrunk.
#include "artwork/ArtworkFolder.h"
#include "artwork/CoverArtError.h"
#include "artwork/CoverArtPreparation.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QFile>
#include <QStringList>
#include <QUrl>

#include <cstdio>
#include <cstdlib>
#include <memory>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

// Of this program alone: what getrusage tells reaches back to the process that started it.
qint64 peakKilobytes()
{
    QFile status(u"/proc/self/status"_s);
    if (!status.open(QIODevice::ReadOnly))
        return 0;
    for (const QByteArray &line : status.readAll().split('\n'))
        if (line.startsWith("VmHWM:"))
            return line.simplified().split(' ').value(1).toLongLong();
    return 0;
}

int probe(const QStringList &arguments)
{
    const QUrl url = QUrl::fromLocalFile(arguments.at(1));
    const CoverArtPreparation preparation(std::make_shared<ArtworkFolder>(arguments.at(3)));
    try {
        const PreparedCoverArt prepared = preparation.prepare(url, arguments.at(2).toLongLong());
        std::printf("%dx%d %lld", prepared.pixelWidth, prepared.pixelHeight,
                    static_cast<long long>(prepared.byteCount));
    } catch (const CoverArtError &error) {
        if (error.kind != CoverArtError::Kind::couldNotShrink)
            return EXIT_FAILURE;
        std::printf("- -");
    }
    const qint64 peak = peakKilobytes();
    std::printf(" %lld\n", static_cast<long long>(peak));
    return peak > 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}

} // namespace

} // namespace tonearm

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    return tonearm::probe(QCoreApplication::arguments());
}
