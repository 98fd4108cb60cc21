// SPDX-License-Identifier: GPL-3.0-or-later
#include "disc/OpticalDiscService.h"

#include "disc/PropertyLists.h"
#include "helpers/Await.h"
#include "helpers/Contents.h"
#include "helpers/Printing.h"
#include "support/Cancellation.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QDir>
#include <QTemporaryDir>
#include <QThread>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <system_error>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

class FixedListing : public VolumeListing
{
public:
    explicit FixedListing(QList<MountedVolume> volumes)
        : m_volumes(std::move(volumes))
    {
    }

    QList<MountedVolume> volumes() const override { return m_volumes; }

private:
    const QList<MountedVolume> m_volumes;
};

class BrokenListing : public VolumeListing
{
public:
    QList<MountedVolume> volumes() const override { throw std::system_error(EIO, std::generic_category()); }
};

// Tells on which thread it is asked, and how often at a time.
class WatchedListing : public VolumeListing
{
public:
    QList<MountedVolume> volumes() const override
    {
        highestCount = std::max(highestCount.load(), ++m_count);
        // Long enough for another scan to get in between, if it could.
        QThread::msleep(20);
        --m_count;
        isOnItsOwnThread = QThread::currentThread() != QCoreApplication::instance()->thread();
        return {};
    }

    mutable std::atomic_int highestCount = 0;
    mutable std::atomic_bool isOnItsOwnThread = false;

private:
    mutable std::atomic_int m_count = 0;
};

class OpticalDiscServiceTest : public testing::Test
{
protected:
    // A folder that holds what the volume of a disc holds.
    MountedVolume discNamed(const QString &name) const
    {
        const MountedVolume volume = emptyVolume(name);
        const QString folder = volume.url.toLocalFile();
        test::writeFile(
            folder + u"/.TOC.plist",
            test::tocOf({test::sessionOf(test::number("Leadout Block", 2150), {test::trackEntry(1, 150)})}));
        test::writeFile(folder + u"/1 Audio Track.aiff", {});
        return volume;
    }

    MountedVolume emptyVolume(const QString &name) const
    {
        EXPECT_TRUE(QDir(m_folder.path()).mkdir(name));
        return {.url = QUrl::fromLocalFile(m_folder.filePath(name)),
                .type = u"cddafs"_s,
                .source = u"/dev/sr0"_s};
    }

    static QStringList scannedNames(const QList<MountedVolume> &volumes)
    {
        OpticalDiscService service(std::make_shared<FixedListing>(volumes));
        QStringList names;
        for (const DiscInfo &disc : test::await(service.scan({})))
            names.append(disc.volumeName);
        return names;
    }

    QTemporaryDir m_folder;
};

} // namespace

TEST_F(OpticalDiscServiceTest, FindsDiscsInTheOrderOfTheList)
{
    EXPECT_EQ(scannedNames({discNamed(u"B"_s), discNamed(u"A"_s)}), (QStringList{u"B"_s, u"A"_s}));
    EXPECT_EQ(scannedNames({}), QStringList());
}

TEST_F(OpticalDiscServiceTest, TellsADiscByTheTypeOfItsVolumeAlone)
{
    MountedVolume folder = discNamed(u"A"_s);
    folder.type = u"ext4"_s;
    MountedVolume capital = discNamed(u"B"_s);
    capital.type = u"CDDAFS"_s;
    MountedVolume prefixed = discNamed(u"C"_s);
    prefixed.type = u"cddafs2"_s;
    EXPECT_EQ(scannedNames({folder, capital, prefixed}), QStringList());
}

TEST_F(OpticalDiscServiceTest, LeavesOutHiddenVolumes)
{
    EXPECT_EQ(scannedNames({discNamed(u".A"_s), discNamed(u"B"_s)}), QStringList{u"B"_s});
}

TEST_F(OpticalDiscServiceTest, LeavesOutWhatCannotBeReadAndGoesOn)
{
    const MountedVolume gone = {
        .url = QUrl::fromLocalFile(m_folder.filePath(u"gone"_s)), .type = u"cddafs"_s, .source = {}};
    const MountedVolume broken = emptyVolume(u"Broken"_s);
    test::writeFile(broken.url.toLocalFile() + u"/.TOC.plist", "nonsense");
    EXPECT_EQ(scannedNames({emptyVolume(u"Empty"_s), gone, broken, discNamed(u"A"_s)}), QStringList{u"A"_s});
}

TEST_F(OpticalDiscServiceTest, FindsNothingWithoutAList)
{
    OpticalDiscService service(std::make_shared<BrokenListing>());
    EXPECT_EQ(test::await(service.scan({})).size(), 0);
}

TEST_F(OpticalDiscServiceTest, ScansOnAThreadOfItsOwnAndOnceAtATime)
{
    const auto listing = std::make_shared<WatchedListing>();
    OpticalDiscService service(listing);
    QCoro::Task<QList<DiscInfo>> first = service.scan({});
    QCoro::Task<QList<DiscInfo>> second = service.scan({});
    test::await(std::move(first));
    test::await(std::move(second));
    EXPECT_TRUE(listing->isOnItsOwnThread);
    EXPECT_EQ(listing->highestCount, 1);
}

TEST_F(OpticalDiscServiceTest, StartsAfreshEachTime)
{
    const MountedVolume volume = discNamed(u"A"_s);
    OpticalDiscService service(std::make_shared<FixedListing>(QList<MountedVolume>{volume}));
    ASSERT_EQ(test::await(service.scan({})).size(), 1);
    ASSERT_TRUE(QFile::remove(volume.url.toLocalFile() + u"/1 Audio Track.aiff"));
    EXPECT_EQ(test::await(service.scan({})).size(), 0);
}

TEST_F(OpticalDiscServiceTest, CanBeCancelled)
{
    OpticalDiscService service(std::make_shared<FixedListing>(QList<MountedVolume>{discNamed(u"A"_s)}));
    std::stop_source stop;
    stop.request_stop();
    EXPECT_TRUE(test::awaitError<CancellationError>(service.scan(stop.get_token())));
}

} // namespace tonearm
