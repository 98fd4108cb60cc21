// SPDX-License-Identifier: GPL-3.0-or-later
// Saves on a disk with less and less room.
#include "helpers/Await.h"
#include "helpers/Contents.h"
#include "helpers/Mutagen.h"
#include "helpers/Printing.h"
#include "helpers/SmallDisk.h"
#include "helpers/SongFolder.h"
#include "tageditor/Writes.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QStorageInfo>

namespace tonearm {

using namespace Qt::StringLiterals;
using test::SongFolder;

namespace {

constexpr int diskKilobytes = 512;
// What such a disk hands out at a time.
constexpr qint64 pageBytes = 4096;

class FullDisk : public testing::TestWithParam<const char *>
{
protected:
    static QString name() { return u"song."_s + QString::fromLatin1(GetParam()); }

    FullDisk()
        : m_disk(m_folder.path(u"disk"_s), diskKilobytes)
    {
    }

    QString onDisk(const QString &name) const { return m_folder.path(u"disk/"_s + name); }

    // A disk with the song and that much room beside it.
    void fill(const QByteArray &song, qint64 room) const
    {
        for (const QString &old : test::namesIn(m_folder.path(u"disk"_s)))
            ASSERT_TRUE(QFile::remove(onDisk(old)));
        test::writeFile(onDisk(name()), song);
        const qint64 available = QStorageInfo(m_folder.path(u"disk"_s)).bytesAvailable();
        ASSERT_GE(available, room);
        test::writeFile(onDisk(u"filler"_s), QByteArray(available - room, 'x'));
    }

    SongFolder m_folder;
    test::SmallDisk m_disk;
};

} // namespace

TEST_P(FullDisk, LeavesTheSongAsItWasOrSavesItWhole)
{
    if (!m_disk.isMounted())
        GTEST_SKIP() << "mounting isn't permitted here";
    const QByteArray song = test::readFile(m_folder.makeSong(name(), {u"title=Song"_s}));
    m_folder.write(m_folder.load(name()), test::newTitle());
    const QByteArray saved = test::readFile(m_folder.path(name()));
    ASSERT_LT(2 * saved.size() + 2 * pageBytes, diskKilobytes * 1024);

    int failures = 0;
    int saves = 0;
    for (qint64 room = 0; room <= saved.size() + 2 * pageBytes; room += pageBytes) {
        ASSERT_NO_FATAL_FAILURE(fill(song, room));
        const EditableAudioFile file = m_folder.load(u"disk/"_s + name());
        const bool hasFailed =
            test::awaitError<std::exception>(m_folder.service().write(file, test::newTitle(), false, {}))
                .has_value();
        EXPECT_TRUE(test::readFile(onDisk(name())) == (hasFailed ? song : saved)) << room;
        EXPECT_EQ(test::namesIn(m_folder.path(u"disk"_s)), (QStringList{u"filler"_s, name()})) << room;
        ++(hasFailed ? failures : saves);
    }
    EXPECT_GT(failures, 1);
    EXPECT_GT(saves, 0);
}

TEST_P(FullDisk, LeavesNothingOfAPreflight)
{
    if (!m_disk.isMounted())
        GTEST_SKIP() << "mounting isn't permitted here";
    m_folder.makeSong(name());
    const AudioFileTagService service(test::shippedTools(), m_folder.path(u"disk"_s));
    const EditableAudioFile file = m_folder.load(name());
    EXPECT_EQ(test::await(service.preflight(file, test::newTitle(), {})), QStringList());
    const qint64 available = QStorageInfo(m_folder.path(u"disk"_s)).bytesAvailable();
    test::writeFile(onDisk(u"filler"_s), QByteArray(available, 'x'));
    EXPECT_TRUE(test::awaitError<std::exception>(service.preflight(file, test::newTitle(), {})));
    EXPECT_EQ(test::namesIn(onDisk(u"Tonearm/Preflight"_s)), QStringList());
}

INSTANTIATE_TEST_SUITE_P(Kinds, FullDisk, testing::Values("flac", "mp3", "m4a"),
                         [](const auto &test) { return std::string(test.param); });

} // namespace tonearm
