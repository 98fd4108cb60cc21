// SPDX-License-Identifier: GPL-3.0-or-later
// The plain reader's copy of a track with its checksum, beside cp and sha256sum.
#include "Shell.h"
#include "Turns.h"
#include "disc/DiscRippingService.h"
#include "helpers/Await.h"
#include "helpers/DiscImage.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QFile>
#include <QTemporaryDir>

#include <cstdio>
#include <memory>
#include <stdexcept>
#include <system_error>

using namespace tonearm;
using namespace tonearm::bench;
using namespace tonearm::test;
using namespace Qt::StringLiterals;

namespace {

constexpr int turns = 3;
constexpr int minutes = 20;
constexpr int sectorsOfTrack = minutes * 60 * 75;

// Files of a drive whose first readings fail, by which a reader learns to take less at a time.
class ReluctantFiles : public SystemRipFiles
{
public:
    explicit ReluctantFiles(int failures)
        : m_left(std::make_shared<int>(failures))
    {
    }

    std::unique_ptr<ReadableFile> open(const QString &path) const override
    {
        return std::make_unique<File>(SystemRipFiles::open(path), m_left);
    }

private:
    class File : public ReadableFile
    {
    public:
        File(std::unique_ptr<ReadableFile> file, std::shared_ptr<int> left)
            : m_file(std::move(file))
            , m_left(std::move(left))
        {
        }

        QByteArray read(qint64 size) override
        {
            if (*m_left > 0) {
                --*m_left;
                throw std::system_error(std::make_error_code(std::errc::io_error));
            }
            return m_file->read(size);
        }

        void seek(qint64 offset) override { m_file->seek(offset); }

    private:
        std::unique_ptr<ReadableFile> m_file;
        // Touched by one reading at a time.
        std::shared_ptr<int> m_left;
    };

    std::shared_ptr<int> m_left;
};

// Waits for the work without a look in between that would cost time.
void rip(DiscRippingService &service, const DiscTrack &track)
{
    const RippedTrack ripped = QCoro::waitFor(service.rip(track, {}, {}, {}));
    if (ripped.checksum.isEmpty() || !QFile::remove(ripped.url.toLocalFile()))
        throw std::runtime_error("a track couldn't be read");
}

void printRow(const QTemporaryDir &folder, const DiscTrack &track, int size, int failures)
{
    DiscRippingService service(folder.path(), std::make_shared<ReluctantFiles>(failures),
                               {.beforeRetry = std::chrono::milliseconds(1)});
    await(service.prefix(track, 1, {}));
    const QString source = quoted(track.audioFileURL.toLocalFile());
    const QString copy = quoted(folder.filePath(u"copy"_s));
    const QString line =
        u"cp %1 %2 && sha256sum %2 >'%3' && rm %2"_s.arg(source, copy, folder.filePath(u"sum"_s));
    const Comparison times = inTurns(
        turns, [&] { runShell(line); }, [&] { rip(service, track); });
    std::printf("%14d %18.0f %14.0f %8.2f\n", size, times.bare.count(), times.own.count(), times.ratio());
    std::fflush(stdout);
}

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    GTEST_FLAG_SET(throw_on_failure, true);
    const QTemporaryDir folder;
    const DiscImage image(folder.path(), {.tracks = {{.sectors = sectorsOfTrack}}});
    DiscTrack track;
    track.number = 1;
    track.frameCount = sectorsOfTrack;
    track.audioFileURL = QUrl::fromLocalFile(image.binPath());
    std::printf("A track of %d minutes, milliseconds, median of %d turns\n\n", minutes, turns);
    std::printf("%14s %18s %14s %8s\n", "bytes a read", "cp, sha256sum", "copy", "ratio");
    constexpr int sixteenSectors = 37632;
    constexpr int oneSector = 2352;
    // Each failure halves the size.
    constexpr int halvings = 4;
    printRow(folder, track, sixteenSectors, 0);
    printRow(folder, track, oneSector, halvings);
    return 0;
}
