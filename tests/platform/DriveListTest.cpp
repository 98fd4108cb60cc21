// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/DriveList.h"

#include "helpers/Printing.h"

#include <gtest/gtest.h>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

const QDBusObjectPath noObject(u"/"_s);

QDBusObjectPath drivePath(const QString &name)
{
    return QDBusObjectPath(u"/org/freedesktop/UDisks2/drives/"_s + name);
}

void addDrive(UDisksObjects &objects, const QString &name, const QVariantMap &properties)
{
    objects[drivePath(name)] = {{u"org.freedesktop.UDisks2.Drive"_s, properties}};
}

void addDevice(UDisksObjects &objects, const QString &name, const QDBusObjectPath &drive)
{
    const QVariantMap block = {{u"Device"_s, QByteArray("/dev/" + name.toUtf8() + '\0')},
                               {u"Drive"_s, QVariant::fromValue(drive)}};
    objects[QDBusObjectPath(u"/org/freedesktop/UDisks2/block_devices/"_s + name)] = {
        {u"org.freedesktop.UDisks2.Block"_s, block}};
}

QVariantMap holding(uint audioTracks, quint64 insertion = 7)
{
    return {{u"MediaAvailable"_s, true},
            {u"OpticalNumAudioTracks"_s, audioTracks},
            {u"TimeMediaDetected"_s, insertion}};
}

// A drive "Plextor" behind /dev/sr0.
UDisksObjects oneDrive(const QVariantMap &properties)
{
    UDisksObjects objects;
    addDrive(objects, u"Plextor"_s, properties);
    addDevice(objects, u"sr0"_s, drivePath(u"Plextor"_s));
    return objects;
}

} // namespace

TEST(DriveList, FindsADiscWithAudioTracks)
{
    const AudioDisc expected = {
        .drive = drivePath(u"Plextor"_s).path(), .device = u"/dev/sr0"_s, .insertion = 7};
    EXPECT_EQ(audioDiscs(oneDrive(holding(12))), QList{expected});
}

TEST(DriveList, FindsNoDiscInAnEmptyDrive)
{
    EXPECT_TRUE(audioDiscs(oneDrive({{u"MediaAvailable"_s, false}})).isEmpty());
    EXPECT_TRUE(audioDiscs(oneDrive({})).isEmpty());
}

TEST(DriveList, PassesOverADiscWithoutAudioTracks)
{
    EXPECT_TRUE(audioDiscs(oneDrive(holding(0))).isEmpty());
}

TEST(DriveList, TellsTheSameDiscInsertedAgainFromBefore)
{
    EXPECT_NE(audioDiscs(oneDrive(holding(12, 7))), audioDiscs(oneDrive(holding(12, 8))));
}

TEST(DriveList, OrdersDiscsByDevice)
{
    UDisksObjects objects;
    addDrive(objects, u"First"_s, holding(1));
    addDevice(objects, u"sr1"_s, drivePath(u"First"_s));
    addDrive(objects, u"Second"_s, holding(1));
    addDevice(objects, u"sr0"_s, drivePath(u"Second"_s));
    const QList<AudioDisc> discs = audioDiscs(objects);
    ASSERT_EQ(discs.size(), 2);
    EXPECT_EQ(discs[0].device, u"/dev/sr0"_s);
    EXPECT_EQ(discs[1].device, u"/dev/sr1"_s);
}

TEST(DriveList, PassesOverPartitions)
{
    UDisksObjects objects = oneDrive(holding(1));
    addDevice(objects, u"sr0p1"_s, drivePath(u"Plextor"_s));
    objects[QDBusObjectPath(u"/org/freedesktop/UDisks2/block_devices/sr0p1"_s)].insert(
        u"org.freedesktop.UDisks2.Partition"_s, {});
    EXPECT_EQ(audioDiscs(objects).size(), 1);
    EXPECT_EQ(driveOf(objects, u"/dev/sr0p1"_s), std::nullopt);
}

TEST(DriveList, FindsTheDriveOfADevice)
{
    UDisksObjects objects = oneDrive({});
    addDevice(objects, u"loop0"_s, noObject);
    EXPECT_EQ(driveOf(objects, u"/dev/sr0"_s), drivePath(u"Plextor"_s).path());
    EXPECT_EQ(driveOf(objects, u"/dev/loop0"_s), std::nullopt);
    EXPECT_EQ(driveOf(objects, u"/dev/sr1"_s), std::nullopt);
}

} // namespace tonearm
