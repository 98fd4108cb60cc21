// SPDX-License-Identifier: GPL-3.0-or-later
#include "cddafs/FuseVolume.h"

#include "cddafs/AiffHeader.h"
#include "helpers/Contents.h"
#include "helpers/FailingSource.h"
#include "helpers/Mounting.h"
#include "helpers/Printing.h"
#include "support/FileDescriptor.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <thread>

namespace tonearm {

using namespace Qt::StringLiterals;
using test::FailingSource;
using Readings = QList<FailingSource::Reading>;

namespace {

constexpr qint64 trackStart = 500;
constexpr qint64 trackSectors = 400;
const DiscLayout layout = {{{1, 900, {{1, trackStart, true}}}}};

// A volume that a thread of the test serves.
class ServedVolume
{
public:
    explicit ServedVolume(SectorSource &source)
        : m_volume(volumeFiles(layout, {{1, u"Song"_s}}), source, "/dev/some drive,\\0", folder().toUtf8())
        , m_thread([this] { m_volume.serve(); })
    {
    }

    ~ServedVolume()
    {
        test::unmount(folder());
        m_thread.join();
    }

    QString folder() const { return m_folder.path(); }

    QString track() const { return m_folder.filePath(u"1 Song.aiff"_s); }

private:
    QTemporaryDir m_folder;
    FuseVolume m_volume;
    std::thread m_thread;
};

FileDescriptor opened(const QString &path)
{
    return FileDescriptor(::open(path.toUtf8().constData(), O_RDONLY | O_CLOEXEC));
}

// Nothing if the reading fails; errno tells why.
std::optional<QByteArray> bytesAt(const FileDescriptor &file, qint64 offset, qint64 size)
{
    QByteArray bytes(size, '?');
    const ssize_t count = ::pread(file.number(), bytes.data(), static_cast<size_t>(size), offset);
    return count < 0 ? std::nullopt : std::optional(bytes.first(count));
}

qint64 offsetOf(qint64 sector)
{
    return (sector - trackStart + 1) * discFrameBytes;
}

} // namespace

class FuseVolumeTest : public testing::Test
{
protected:
    void SetUp() override { SKIP_WITHOUT_MOUNTS(); }
};

TEST_F(FuseVolumeTest, IsMountedReadOnlyWithItsTypeAndSource)
{
    FailingSource source;
    const ServedVolume volume(source);
    const auto entry = test::mountedOn(volume.folder());
    ASSERT_TRUE(entry);
    EXPECT_EQ(entry->type, u"fuse.cddafs"_s);
    EXPECT_EQ(entry->source, u"/dev/some drive,\\0"_s);
    EXPECT_TRUE(entry->options.startsWith(u"ro,"_s)) << entry->options.toStdString();
    EXPECT_TRUE(entry->options.contains(u"nosuid,nodev"_s));
}

TEST_F(FuseVolumeTest, ListsItsFilesForItsUserAlone)
{
    FailingSource source;
    const ServedVolume volume(source);
    EXPECT_EQ(test::namesIn(volume.folder()), (QStringList{u".TOC.plist"_s, u"1 Song.aiff"_s}));
    struct stat status = {};
    ASSERT_EQ(::stat(volume.track().toUtf8().constData(), &status), 0);
    EXPECT_EQ(status.st_size, (trackSectors + 1) * discFrameBytes);
    EXPECT_EQ(status.st_mode, S_IFREG | 0444U);
    EXPECT_EQ(status.st_uid, ::getuid());
    EXPECT_EQ(::stat((volume.folder() + u"/2 Song.aiff").toUtf8().constData(), &status), -1);
    EXPECT_EQ(errno, ENOENT);
}

TEST_F(FuseVolumeTest, TakesNoWriting)
{
    FailingSource source;
    const ServedVolume volume(source);
    EXPECT_EQ(::open(volume.track().toUtf8().constData(), O_RDWR | O_CLOEXEC), -1);
    EXPECT_EQ(errno, EROFS);
    EXPECT_EQ(::open((volume.folder() + u"/new").toUtf8().constData(), O_CREAT | O_RDWR | O_CLOEXEC, 0600),
              -1);
    EXPECT_EQ(errno, EROFS);
    EXPECT_EQ(::unlink(volume.track().toUtf8().constData()), -1);
    EXPECT_EQ(errno, EROFS);
}

TEST_F(FuseVolumeTest, GivesTheWholeTrack)
{
    FailingSource source;
    const ServedVolume volume(source);
    EXPECT_TRUE(test::readFile(volume.track()) ==
                aiffHeader(trackSectors) + FailingSource::fileSectors(trackStart, trackSectors));
}

TEST_F(FuseVolumeTest, ReadsTheDiscAgainEachTimeAFileIsOpened)
{
    FailingSource source;
    const ServedVolume volume(source);
    test::readFile(volume.track());
    const Readings first = source.takeReadings();
    test::readFile(volume.track());
    EXPECT_GT(first.size(), 0);
    EXPECT_EQ(source.takeReadings(), first);
}

TEST_F(FuseVolumeTest, ReadsFewLargePiecesForManySmallOnes)
{
    FailingSource source;
    const ServedVolume volume(source);
    const FileDescriptor file = opened(volume.track());
    for (qint64 sector = trackStart; sector < trackStart + 129; ++sector)
        ASSERT_EQ(bytesAt(file, offsetOf(sector), discFrameBytes), FailingSource::fileSectors(sector, 1));
    EXPECT_EQ(source.takeReadings(), (Readings{{500, 1}, {501, 64}, {565, 64}}));
}

TEST_F(FuseVolumeTest, GivesWhatIsGoodBeforeItFails)
{
    FailingSource source({600, 601});
    const ServedVolume volume(source);
    const FileDescriptor file = opened(volume.track());
    EXPECT_EQ(bytesAt(file, offsetOf(590), 16 * discFrameBytes), FailingSource::fileSectors(590, 10));
    EXPECT_EQ(bytesAt(file, offsetOf(600), discFrameBytes), std::nullopt);
    EXPECT_EQ(errno, EIO);
    EXPECT_EQ(bytesAt(file, offsetOf(602), discFrameBytes), FailingSource::fileSectors(602, 1));
}

TEST_F(FuseVolumeTest, GivesWhatIsGoodOfAReadingLargerThanTheKernelAsksAtOnce)
{
    FailingSource source({850});
    const ServedVolume volume(source);
    const FileDescriptor file = opened(volume.track());
    EXPECT_TRUE(bytesAt(file, 0, (trackSectors + 1) * discFrameBytes) ==
                aiffHeader(trackSectors) + FailingSource::fileSectors(trackStart, 350));
}

} // namespace tonearm
