// SPDX-License-Identifier: GPL-3.0-or-later
// The plain reader's copy of a track with its checksum, beside cp and sha256sum.
#include "LongTrack.h"
#include "Shell.h"
#include "Turns.h"
#include "disc/DiscRippingService.h"
#include "helpers/Await.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QFile>

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

void measure(const LongTrack &sound, int size, int failures)
{
    const QTemporaryDir &folder = sound.folder;
    const DiscTrack track = {
        .number = 1, .frameCount = sound.sectors, .audioFileURL = QUrl::fromLocalFile(sound.image.binPath())};
    DiscRippingService service(folder.path(), std::make_shared<ReluctantFiles>(failures),
                               {.beforeRetry = std::chrono::milliseconds(1)});
    // Sixteen sectors, which a drive that doesn't fail gives in one reading: a reading of fewer at the end
    // would make all later ones as small.
    await(service.prefix(track, 14.5 / discFramesPerSecond, {}));
    const QString source = quoted(track.audioFileURL.toLocalFile());
    const QString copy = quoted(folder.filePath(u"copy"_s));
    const QString line =
        u"cp %1 %2 && sha256sum %2 >'%3' && rm %2"_s.arg(source, copy, folder.filePath(u"sum"_s));
    const Comparison times = inTurns(
        turns, [&] { runShell(line); }, [&] { rip(service, track); });
    printRow(size, times.bare.count(), times.own.count(), times.ratio());
}

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    GTEST_FLAG_SET(throw_on_failure, true);
    const LongTrack sound(minutes);
    std::printf("A track of %d minutes, milliseconds, median of %d turns\n\n", minutes, turns);
    std::printf("%14s %18s %14s %8s\n", "bytes a read", "cp, sha256sum", "copy", "ratio");
    // Each failure halves the size.
    constexpr int halvings = 4;
    measure(sound, sixteenSectors, 0);
    measure(sound, oneSector, halvings);
    return 0;
}
