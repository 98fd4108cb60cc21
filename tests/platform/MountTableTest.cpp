// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/MountTable.h"

#include "helpers/Await.h"
#include "helpers/Contents.h"
#include "helpers/Printing.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>

#include <system_error>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

QList<MountedVolume> volumesIn(const QByteArray &lines)
{
    const QTemporaryDir folder;
    const QString table = folder.filePath(u"mountinfo"_s);
    test::writeFile(table, lines);
    return MountTable(table).volumes();
}

MountedVolume volume(const QString &folder, const QString &type, const QString &source)
{
    return {.url = QUrl::fromLocalFile(folder), .type = type, .source = source};
}

} // namespace

TEST(MountTable, ListsVolumesInTheKernelsOrder)
{
    EXPECT_EQ(volumesIn("25 1 8:1 / / rw,relatime shared:1 - ext4 /dev/sda1 rw\n"
                        "26 25 0:22 / /proc rw - proc proc rw\n"),
              (QList{volume(u"/"_s, u"ext4"_s, u"/dev/sda1"_s), volume(u"/proc"_s, u"proc"_s, u"proc"_s)}));
}

TEST(MountTable, NamesAFileSystemInUserSpaceByItsOwnName)
{
    EXPECT_EQ(volumesIn("70 25 0:50 / /media/cd ro shared:9 - fuse.cddafs /dev/sr0 ro,user_id=0\n"
                        "71 25 0:51 / /media/x rw - fuseblk /dev/sdb1 rw\n"),
              (QList{volume(u"/media/cd"_s, u"cddafs"_s, u"/dev/sr0"_s),
                     volume(u"/media/x"_s, u"fuseblk"_s, u"/dev/sdb1"_s)}));
}

TEST(MountTable, ReadsBlanksAndOtherCharactersInPaths)
{
    EXPECT_EQ(volumesIn("70 25 0:50 / /media/Caf\xc3\xa9\\040del\\040Mar\\134 ro - fuse.cddafs "
                        "/discs/a\\040b\\011c.cue ro\n"),
              QList{volume(u"/media/Café del Mar\\"_s, u"cddafs"_s, u"/discs/a b\tc.cue"_s)});
}

TEST(MountTable, LeavesOutWhatIsHiddenBelowAnotherVolume)
{
    EXPECT_EQ(volumesIn("70 25 0:50 / /media/cd ro - fuse.cddafs /dev/sr0 ro\n"
                        "71 25 0:51 / /home rw - ext4 /dev/sda2 rw\n"
                        "72 25 0:52 / /media/cd ro - fuse.cddafs /dev/sr1 ro\n"),
              (QList{volume(u"/home"_s, u"ext4"_s, u"/dev/sda2"_s),
                     volume(u"/media/cd"_s, u"cddafs"_s, u"/dev/sr1"_s)}));
}

TEST(MountTable, IsEmptyWithoutVolumes)
{
    EXPECT_EQ(volumesIn(""), QList<MountedVolume>());
}

TEST(MountTable, FailsIfItCantBeRead)
{
    const auto error =
        test::errorOf<std::system_error>([] { return MountTable(u"/nowhere/mountinfo"_s).volumes(); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->code(), std::errc::no_such_file_or_directory);
}

TEST(MountTable, KnowsThisMachinesVolumes)
{
    const QList<MountedVolume> volumes = MountTable().volumes();
    EXPECT_TRUE(std::any_of(volumes.begin(), volumes.end(), [](const MountedVolume &volume) {
        return volume.url == QUrl(u"file:///proc"_s) && volume.type == u"proc";
    }));
}

} // namespace tonearm
