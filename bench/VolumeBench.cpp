// SPDX-License-Identifier: GPL-3.0-or-later
// Sequential reading of an hour of sound through a mounted volume, beside the same reading of the image.
#include "LongTrack.h"
#include "Turns.h"
#include "helpers/CddafsProgram.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QFile>

#include <fcntl.h>
#include <unistd.h>

#include <stdexcept>
#include <vector>

using namespace tonearm::bench;
using namespace tonearm::test;
using namespace Qt::StringLiterals;

namespace {

constexpr int turns = 3;
constexpr int minutes = 60;
constexpr qint64 soundBytes = qint64{minutes} * 60 * 75 * oneSector;

// Reads a whole file, so many bytes at a time.
void readThrough(const QString &path, int size)
{
    const int file = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC);
    std::vector<char> buffer(static_cast<std::size_t>(size));
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

void measure(const QString &track, const QString &image, int size)
{
    const Comparison times = inTurns(
        turns, [&] { readThrough(image, size); }, [&] { readThrough(track, size); });
    printRow(size, megabytesPerSecond(times.bare), megabytesPerSecond(times.own), times.ratio());
}

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    GTEST_FLAG_SET(throw_on_failure, true);
    const LongTrack sound(minutes);
    CddafsProgram program({u"--in"_s, sound.folder.path(), sound.image.path()});
    const QString track = program.waitForMount() + u"/1 Audio Track.aiff"_s;
    std::printf("%d minutes of sound, median of %d turns\n\n", minutes, turns);
    std::printf("%14s %18s %14s %8s\n", "bytes a read", "image MB/s", "volume MB/s", "ratio");
    measure(track, sound.image.binPath(), sixteenSectors);
    measure(track, sound.image.binPath(), oneSector);
    return 0;
}
