// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/OpticalDrives.h"

#include "disc/OpticalDiscService.h"
#include "helpers/Await.h"
#include "helpers/Contents.h"
#include "helpers/DiscImage.h"
#include "helpers/DrivesStandIn.h"
#include "helpers/Media.h"
#include "helpers/Mounting.h"
#include "helpers/Printing.h"
#include "helpers/PrivateBus.h"
#include "platform/MountTable.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QFile>
#include <QTemporaryDir>

#include <algorithm>
#include <optional>
#include <system_error>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

constexpr int patienceMilliseconds = 30000;

QString cddafsPath()
{
    return QCoreApplication::applicationDirPath() + u"/tonearm-cddafs";
}

// Two empty drives "left" and "right", and what the application keeps of them.
class OpticalDrivesTest : public testing::Test
{
protected:
    void SetUp() override
    {
        SKIP_WITHOUT_MOUNTS();
        m_standIn.addDrive(u"left"_s);
        m_standIn.addDrive(u"right"_s);
        m_standIn.appear();
        test::writeFile(m_images.filePath(u"attempts"_s), {});
        // The program, with a list of the devices that it is started for.
        test::writeScript(program(), "echo \"$5\" >> '" + m_images.filePath(u"attempts"_s).toUtf8() +
                                         "'\nexec '" + cddafsPath().toUtf8() + "' \"$@\"\n");
        startDrives();
    }

    void startDrives()
    {
        m_drives.emplace(QUrl::fromLocalFile(program()), m_volumes.path());
        m_drives->follow(m_bus.connect());
    }

    QString program() const { return m_images.filePath(u"program"_s); }

    // The path of a disc's image, which serves as its device.
    QString disc(const QString &title)
    {
        return test::DiscImage(m_images.path(), {.tracks = {{}}, .title = title.toUtf8()}, title).path();
    }

    QString pathOf(const QString &name) const { return m_volumes.filePath(name); }

    QUrl urlOf(const QString &name) const { return QUrl::fromLocalFile(pathOf(name)); }

    // What is mounted now, by name.
    QStringList volumes() const
    {
        QStringList names;
        for (const MountedVolume &volume : MountTable().volumes())
            if (volume.type == u"cddafs" && volume.url.path().startsWith(m_volumes.path()))
                names.append(volume.url.fileName());
        names.sort();
        return names;
    }

    bool shows(const QStringList &names) const
    {
        return test::eventually([&] { return volumes() == names; }, patienceMilliseconds);
    }

    // Whether no mount point is left.
    bool isClean() const
    {
        return test::eventually([&] { return test::namesIn(m_volumes.path()).isEmpty(); },
                                patienceMilliseconds);
    }

    // What there has been an attempt to mount, in order.
    QStringList attempts() const
    {
        return QString::fromUtf8(test::readFile(m_images.filePath(u"attempts"_s)))
            .split(u'\n', Qt::SkipEmptyParts);
    }

    QTemporaryDir m_images;
    QTemporaryDir m_volumes;
    test::PrivateBus m_bus;
    test::DrivesStandIn m_standIn{m_bus.connect()};
    std::optional<OpticalDrives> m_drives;
};

} // namespace

TEST_F(OpticalDrivesTest, MountsADiscWhenItIsInserted)
{
    const QString blue = disc(u"Blue"_s);
    m_standIn.insert(u"left"_s, blue);
    ASSERT_TRUE(shows({u"Blue"_s}));
    const auto entry = test::mountedOn(pathOf(u"Blue"_s));
    EXPECT_EQ(entry->source, blue);
    EXPECT_EQ(test::namesIn(pathOf(u"Blue"_s)), (QStringList{u".TOC.plist"_s, u"1 Audio Track.aiff"_s}));
}

TEST_F(OpticalDrivesTest, OffersDiscsToTheScanInTheOrderOfTheirMounting)
{
    m_standIn.insert(u"left"_s, disc(u"Blue"_s));
    ASSERT_TRUE(shows({u"Blue"_s}));
    m_standIn.insert(u"right"_s, disc(u"Amelia"_s));
    ASSERT_TRUE(shows({u"Amelia"_s, u"Blue"_s}));
    const auto table = std::make_shared<const MountTable>();
    OpticalDiscService service(table);
    const QList<DiscInfo> discs = test::await(service.scan({}));
    ASSERT_EQ(discs.size(), 2);
    EXPECT_EQ(discs[0].volumeURL, urlOf(u"Blue"_s));
    EXPECT_EQ(discs[1].volumeURL, urlOf(u"Amelia"_s));
}

TEST_F(OpticalDrivesTest, MountsADiscThatWasThereBefore)
{
    m_drives.reset();
    m_standIn.insert(u"left"_s, disc(u"Blue"_s));
    startDrives();
    EXPECT_TRUE(shows({u"Blue"_s}));
}

TEST_F(OpticalDrivesTest, MountsTheDiscsOfTwoDrives)
{
    m_standIn.insert(u"left"_s, disc(u"Blue"_s));
    m_standIn.insert(u"right"_s, disc(u"Court and Spark"_s));
    EXPECT_TRUE(shows({u"Blue"_s, u"Court and Spark"_s}));
}

TEST_F(OpticalDrivesTest, UnmountsADiscThatIsPulledOut)
{
    m_standIn.insert(u"left"_s, disc(u"Blue"_s));
    m_standIn.insert(u"right"_s, disc(u"Court and Spark"_s));
    ASSERT_TRUE(shows({u"Blue"_s, u"Court and Spark"_s}));
    m_standIn.pullOut(u"left"_s);
    EXPECT_TRUE(shows({u"Court and Spark"_s}));
}

TEST_F(OpticalDrivesTest, UnmountsADiscWhoseDriveIsUnplugged)
{
    m_standIn.insert(u"left"_s, disc(u"Blue"_s));
    ASSERT_TRUE(shows({u"Blue"_s}));
    m_standIn.removeDrive(u"left"_s);
    EXPECT_TRUE(shows({}));
    EXPECT_TRUE(isClean());
}

TEST_F(OpticalDrivesTest, MountsTheNextDiscOfADrive)
{
    m_standIn.insert(u"left"_s, disc(u"Blue"_s));
    ASSERT_TRUE(shows({u"Blue"_s}));
    m_standIn.insert(u"left"_s, disc(u"Hejira"_s));
    EXPECT_TRUE(shows({u"Hejira"_s}));
}

TEST_F(OpticalDrivesTest, MountsTheSameDiscInsertedAgainUnderItsName)
{
    const QString blue = disc(u"Blue"_s);
    m_standIn.insert(u"left"_s, blue);
    ASSERT_TRUE(shows({u"Blue"_s}));
    const auto mounted = [this] { return QFile::exists(pathOf(u"Blue/.TOC.plist"_s)); };
    ASSERT_TRUE(mounted());
    m_standIn.pullOut(u"left"_s);
    m_standIn.insert(u"left"_s, blue);
    ASSERT_TRUE(shows({}));
    EXPECT_TRUE(shows({u"Blue"_s}));
    EXPECT_TRUE(mounted());
}

TEST_F(OpticalDrivesTest, OffersNoDiscWithoutAudioTracks)
{
    m_standIn.insert(u"left"_s, disc(u"Data"_s), 0);
    const QString blue = disc(u"Blue"_s);
    m_standIn.insert(u"right"_s, blue);
    EXPECT_TRUE(shows({u"Blue"_s}));
    EXPECT_EQ(attempts(), QStringList{blue});
}

TEST_F(OpticalDrivesTest, PassesOverADiscThatCantBeMounted)
{
    const QString nothing = m_images.filePath(u"nothing.cue"_s);
    const QString blue = disc(u"Blue"_s);
    m_standIn.insert(u"left"_s, nothing);
    ASSERT_TRUE(test::eventually([&] { return attempts() == QStringList{nothing}; }));
    m_standIn.insert(u"right"_s, blue);
    EXPECT_TRUE(shows({u"Blue"_s}));
    EXPECT_EQ(attempts(), (QStringList{nothing, blue}));
}

TEST_F(OpticalDrivesTest, UnmountsEverythingAtItsEnd)
{
    m_standIn.insert(u"left"_s, disc(u"Blue"_s));
    m_standIn.insert(u"right"_s, disc(u"Court and Spark"_s));
    ASSERT_TRUE(shows({u"Blue"_s, u"Court and Spark"_s}));
    m_drives.reset();
    EXPECT_EQ(volumes(), QStringList());
    EXPECT_EQ(test::namesIn(m_volumes.path()), QStringList());
}

TEST_F(OpticalDrivesTest, EndsThoughTheServiceDoesntAnswer)
{
    m_standIn.fallSilent();
    m_standIn.insert(u"left"_s, disc(u"Blue"_s));
    startDrives();
    m_drives.reset();
    EXPECT_EQ(attempts(), QStringList());
}

TEST_F(OpticalDrivesTest, EndsWhileTheDrivesChange)
{
    const QString blue = disc(u"Blue"_s);
    const QString court = disc(u"Court and Spark"_s);
    m_standIn.insert(u"left"_s, blue);
    ASSERT_TRUE(shows({u"Blue"_s}));
    m_standIn.insert(u"right"_s, court);
    m_standIn.pullOut(u"left"_s);
    m_drives.reset();
    m_standIn.insert(u"left"_s, blue);
    EXPECT_EQ(volumes(), QStringList());
    EXPECT_EQ(attempts(), QStringList{blue});
}

TEST_F(OpticalDrivesTest, OffersNothingWhereTheServiceIsAbsent)
{
    m_standIn.vanish();
    m_standIn.insert(u"left"_s, disc(u"Blue"_s));
    startDrives();
    const UDisks another(m_bus.connect(), [] {});
    ASSERT_TRUE(test::awaitError<UDisksError>(another.objects({})));
    EXPECT_EQ(attempts(), QStringList());
    m_standIn.appear();
    EXPECT_TRUE(shows({u"Blue"_s}));
}

TEST_F(OpticalDrivesTest, KeepsADiscMountedWhileTheServiceIsAway)
{
    m_standIn.insert(u"left"_s, disc(u"Blue"_s));
    ASSERT_TRUE(shows({u"Blue"_s}));
    m_standIn.vanish();
    m_standIn.insert(u"right"_s, disc(u"Court and Spark"_s));
    m_standIn.appear();
    EXPECT_TRUE(shows({u"Blue"_s, u"Court and Spark"_s}));
}

TEST_F(OpticalDrivesTest, LeavesADiscUnmountedThatAPersonHasUnmounted)
{
    const QString blue = disc(u"Blue"_s);
    const QString court = disc(u"Court and Spark"_s);
    m_standIn.insert(u"left"_s, blue);
    ASSERT_TRUE(shows({u"Blue"_s}));
    test::unmount(pathOf(u"Blue"_s));
    ASSERT_TRUE(isClean());
    m_standIn.insert(u"right"_s, court);
    EXPECT_TRUE(shows({u"Court and Spark"_s}));
    EXPECT_EQ(attempts(), (QStringList{blue, court}));
}

TEST_F(OpticalDrivesTest, EjectsADisc)
{
    m_standIn.insert(u"left"_s, disc(u"Blue"_s));
    m_standIn.insert(u"right"_s, disc(u"Court and Spark"_s));
    ASSERT_TRUE(shows({u"Blue"_s, u"Court and Spark"_s}));
    test::await(m_drives->eject(urlOf(u"Court and Spark"_s), {}));
    EXPECT_EQ(volumes(), QStringList{u"Blue"_s});
    EXPECT_EQ(m_standIn.ejected(), QStringList{u"right"_s});
}

TEST_F(OpticalDrivesTest, EjectsADiscWhoseFilesAreOpen)
{
    m_standIn.insert(u"left"_s, disc(u"Blue"_s));
    ASSERT_TRUE(shows({u"Blue"_s}));
    QFile track(pathOf(u"Blue/1 Audio Track.aiff"_s));
    ASSERT_TRUE(track.open(QIODevice::ReadOnly));
    test::await(m_drives->eject(urlOf(u"Blue"_s), {}));
    EXPECT_EQ(volumes(), QStringList());
    EXPECT_EQ(m_standIn.ejected(), QStringList{u"left"_s});
}

TEST_F(OpticalDrivesTest, MountsTheDiscThatComesAfterAnEjectedOne)
{
    const QString blue = disc(u"Blue"_s);
    m_standIn.insert(u"left"_s, blue);
    ASSERT_TRUE(shows({u"Blue"_s}));
    test::await(m_drives->eject(urlOf(u"Blue"_s), {}));
    m_standIn.insert(u"left"_s, disc(u"Hejira"_s));
    EXPECT_TRUE(shows({u"Hejira"_s}));
    test::await(m_drives->eject(urlOf(u"Hejira"_s), {}));
    m_standIn.insert(u"left"_s, blue);
    EXPECT_TRUE(shows({u"Blue"_s}));
}

TEST_F(OpticalDrivesTest, ShowsADiscAgainThatItsDriveWontLetGo)
{
    m_standIn.insert(u"left"_s, disc(u"Blue"_s));
    ASSERT_TRUE(shows({u"Blue"_s}));
    m_standIn.refuseToEject();
    const auto error = test::awaitError<UDisksError>(m_drives->eject(urlOf(u"Blue"_s), {}));
    ASSERT_TRUE(error);
    EXPECT_EQ(error->description(), u"It is locked."_s);
    EXPECT_TRUE(shows({u"Blue"_s}));
}

TEST_F(OpticalDrivesTest, UnmountsAnImageThatAPersonHasMounted)
{
    const QByteArray printed =
        test::outputOf(cddafsPath(), {u"--background"_s, u"--in"_s, m_volumes.path(), disc(u"Blue"_s)});
    ASSERT_EQ(printed, pathOf(u"Blue"_s).toUtf8() + '\n');
    test::await(m_drives->eject(urlOf(u"Blue"_s), {}));
    EXPECT_EQ(volumes(), QStringList());
    EXPECT_EQ(m_standIn.ejected(), QStringList());
    EXPECT_TRUE(isClean());
}

TEST_F(OpticalDrivesTest, UnmountsAnImageWhereTheServiceIsAbsent)
{
    m_standIn.vanish();
    test::outputOf(cddafsPath(), {u"--background"_s, u"--in"_s, m_volumes.path(), disc(u"Blue"_s)});
    test::await(m_drives->eject(urlOf(u"Blue"_s), {}));
    EXPECT_EQ(volumes(), QStringList());
    EXPECT_TRUE(isClean());
}

TEST_F(OpticalDrivesTest, FailsToEjectWhereNothingIsMounted)
{
    const auto error = test::awaitError<std::system_error>(m_drives->eject(urlOf(u"Blue"_s), {}));
    ASSERT_TRUE(error);
    EXPECT_EQ(error->code(), std::errc::no_such_file_or_directory);
}

} // namespace tonearm
