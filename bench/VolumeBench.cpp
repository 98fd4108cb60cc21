// SPDX-License-Identifier: GPL-3.0-or-later
// Sequential reading of an hour of sound through a mounted volume, beside the same reading of the image.
#include "Turns.h"
#include "helpers/CddafsProgram.h"
#include "helpers/DiscImage.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QFile>
#include <QTemporaryDir>

#include <fcntl.h>
#include <unistd.h>

#include <cstdio>
#include <stdexcept>
#include <vector>

using namespace tonearm::bench;
using namespace tonearm::test;
using namespace Qt::StringLiterals;

namespace {

constexpr int turns = 3;
constexpr int sectorBytes = 2352;
constexpr int sectorsOfAnHour = 60 * 60 * 75;
constexpr qint64 soundBytes = qint64{sectorsOfAnHour} * sectorBytes;

// Reads a whole file, so many bytes at a time.
void readThrough(const QString &path, std::size_t size)
{
    const int file = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC);
    std::vector<char> buffer(size);
    qint64 total = 0;
    ssize_t count = 0;
    while (file >= 0 && (count = ::read(file, buffer.data(), buffer.size())) > 0)
        total += count;
    ::close(file);
    if (file < 0 || count < 0 || total < soundBytes)
        throw std::runtime_error(path.toStdString() + " can't be read");
}

double megabytesPerSecond(Milliseconds time)
{
    constexpr double bytesPerMegabyte = 1e6;
    return double(soundBytes) / bytesPerMegabyte / std::chrono::duration<double>(time).count();
}

void printRow(const QString &track, const QString &image, std::size_t size)
{
    const Comparison times = inTurns(
        turns, [&] { readThrough(image, size); }, [&] { readThrough(track, size); });
    std::printf("%14zu %14.0f %14.0f %8.2f\n", size, megabytesPerSecond(times.bare),
                megabytesPerSecond(times.own), times.ratio());
    std::fflush(stdout);
}

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    GTEST_FLAG_SET(throw_on_failure, true);
    const QTemporaryDir folder;
    const DiscImage image(folder.path(), {.tracks = {{.sectors = sectorsOfAnHour}}});
    CddafsProgram program({u"--in"_s, folder.path(), image.path()});
    const QString track = program.waitForMount() + u"/1 Audio Track.aiff"_s;
    std::printf("%d minutes of sound, median of %d turns\n\n", 60, turns);
    std::printf("%14s %14s %14s %8s\n", "bytes a read", "image MB/s", "volume MB/s", "ratio");
    constexpr std::size_t sixteenSectors = 16 * std::size_t{sectorBytes};
    printRow(track, image.binPath(), sixteenSectors);
    printRow(track, image.binPath(), sectorBytes);
    return 0;
}
