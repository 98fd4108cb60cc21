// SPDX-License-Identifier: GPL-3.0-or-later
// Files that a save leaves alone, and the looks at a file before it.
#include "helpers/Await.h"
#include "helpers/Contents.h"
#include "helpers/Mutagen.h"
#include "helpers/OrdinaryUser.h"
#include "helpers/Printing.h"
#include "helpers/SmallDisk.h"
#include "helpers/SongFolder.h"
#include "tageditor/FilePath.h"
#include "tageditor/RewriteTarget.h"
#include "tageditor/Writes.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

#include <sys/stat.h>

#include <chrono>
#include <filesystem>
#include <system_error>

namespace tonearm {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using test::SongFolder;

namespace {

class RefusedWrite : public testing::Test
{
protected:
    EditableAudioFile makeRow() const
    {
        m_folder.makeSong(u"a.flac"_s);
        return m_folder.load(u"a.flac"_s);
    }

    std::optional<AudioFileTagError> errorFor(const EditableAudioFile &file, bool allowingLoss = false) const
    {
        return test::awaitError<AudioFileTagError>(
            m_folder.service().write(file, test::newTitle(), allowingLoss, {}));
    }

    // A row whose stored date lies that far from the file's.
    std::optional<AudioFileTagError> errorForDateOff(std::chrono::milliseconds difference) const
    {
        EditableAudioFile file = makeRow();
        file.modificationDate = file.modificationDate->addMSecs(difference.count());
        return errorFor(file);
    }

    void addIdentifiers(const QString &name) const
    {
        test::python(R"(
from mutagen.mp4 import MP4
file = MP4(a[1])
for number in range(30):
    file['----:org.example.tagger:MusicBrainz Id %02d' % number] = b'value'
file.save()
)",
                     {m_folder.path(name)});
    }

    SongFolder m_folder;
};

QStringList identifierNames()
{
    QStringList names;
    for (int number = 0; number < 30; ++number)
        names.append(u"musicbrainz id %1"_s.arg(number, 2, 10, QChar(u'0')));
    return names;
}

} // namespace

TEST_F(RefusedWrite, IsOneOfAFileThatIsGone)
{
    const EditableAudioFile file = makeRow();
    ASSERT_TRUE(QFile::remove(m_folder.path(u"a.flac"_s)));
    EXPECT_EQ(errorFor(file), AudioFileTagError::fileMissing(file.url));
    EXPECT_EQ(test::namesIn(m_folder.path()), QStringList());
}

TEST_F(RefusedWrite, IsOneOfALinkThatLeadsNowhereAnyMore)
{
    m_folder.makeSong(u"real.flac"_s);
    ASSERT_TRUE(QFile::link(m_folder.path(u"real.flac"_s), m_folder.path(u"a.flac"_s)));
    const EditableAudioFile file = m_folder.load(u"a.flac"_s);
    ASSERT_TRUE(QFile::remove(m_folder.path(u"real.flac"_s)));
    EXPECT_EQ(errorFor(file), AudioFileTagError::fileMissing(file.url));
}

TEST_F(RefusedWrite, IsOneOfAFolderInTheFilesPlace)
{
    EditableAudioFile file = makeRow();
    ASSERT_TRUE(QFile::remove(m_folder.path(u"a.flac"_s)));
    ASSERT_TRUE(QDir().mkpath(m_folder.path(u"a.flac/inside"_s)));
    file.modificationDate.reset();
    EXPECT_EQ(errorFor(file, true), AudioFileTagError::fileChangedOnDisk(file.url));
    EXPECT_EQ(test::namesIn(m_folder.path()), QStringList{u"a.flac"_s});
    EXPECT_EQ(test::namesIn(m_folder.path(u"a.flac"_s)), QStringList{u"inside"_s});
}

TEST_F(RefusedWrite, IsOneOfAFileChangedMoreThanASecondBeforeOrAfter)
{
    EXPECT_EQ(errorForDateOff(1500ms), AudioFileTagError::fileChangedOnDisk(m_folder.url(u"a.flac"_s)));
    EXPECT_EQ(errorForDateOff(-1500ms), AudioFileTagError::fileChangedOnDisk(m_folder.url(u"a.flac"_s)));
    EXPECT_EQ(errorForDateOff(1001ms), AudioFileTagError::fileChangedOnDisk(m_folder.url(u"a.flac"_s)));
    EXPECT_EQ(m_folder.tags(u"a.flac"_s).title, u"Song"_s);
}

TEST_F(RefusedWrite, IsNotOneOfAFileChangedWithinASecond)
{
    EXPECT_EQ(errorForDateOff(500ms), std::nullopt);
    EXPECT_EQ(errorForDateOff(-500ms), std::nullopt);
    EXPECT_EQ(errorForDateOff(1000ms), std::nullopt);
    EXPECT_EQ(m_folder.tags(u"a.flac"_s).title, u"New Title"_s);
}

TEST_F(RefusedWrite, IsNotOneOfAFileWithoutAStoredDate)
{
    EditableAudioFile file = makeRow();
    file.modificationDate.reset();
    std::filesystem::last_write_time(m_folder.path(u"a.flac"_s).toStdString(),
                                     std::filesystem::file_time_type::clock::now() - 24h);
    EXPECT_EQ(errorFor(file), std::nullopt);
}

TEST_F(RefusedWrite, IsOneOfAPipeInTheFilesPlace)
{
    EditableAudioFile file = makeRow();
    ASSERT_TRUE(QFile::remove(m_folder.path(u"a.flac"_s)));
    ASSERT_EQ(::mkfifo(QFile::encodeName(m_folder.path(u"a.flac"_s)).constData(), 0666), 0);
    file.modificationDate.reset();
    EXPECT_EQ(errorFor(file), AudioFileTagError::fileChangedOnDisk(file.url));
}

TEST_F(RefusedWrite, SeesAnotherFileInTheFilesPlace)
{
    const EditableAudioFile file = makeRow();
    m_folder.makeSong(u"other.flac"_s);
    const auto later = std::filesystem::file_time_type::clock::now() + 5s;
    std::filesystem::last_write_time(m_folder.path(u"other.flac"_s).toStdString(), later);
    std::filesystem::rename(m_folder.path(u"other.flac"_s).toStdString(),
                            m_folder.path(u"a.flac"_s).toStdString());
    EXPECT_EQ(errorFor(file), AudioFileTagError::fileChangedOnDisk(file.url));
}

TEST_F(RefusedWrite, IsOneOfAFileThatMayNotBeWritten)
{
    const EditableAudioFile file = makeRow();
    ASSERT_TRUE(QFile::setPermissions(m_folder.path(), QFile::Permissions(0x7777)));
    ASSERT_TRUE(QFile::setPermissions(m_folder.path(u"a.flac"_s), QFile::ReadOwner | QFile::ReadOther));
    ASSERT_TRUE(QFile::setPermissions(QFileInfo(m_folder.path()).path(), QFile::Permissions(0x7777)));
    std::optional<AudioFileTagError> error;
    test::asOrdinaryUser(
        [&] { error = test::errorOf<AudioFileTagError>([&] { return rewriteTarget(file); }); });
    EXPECT_EQ(error, AudioFileTagError::notWritable(file.url));
}

TEST_F(RefusedWrite, IsOneOfAFileInAFolderThatMayNotBeWritten)
{
    const EditableAudioFile file = makeRow();
    ASSERT_TRUE(QFile::setPermissions(m_folder.path(u"a.flac"_s), QFile::Permissions(0x6666)));
    ASSERT_TRUE(QFile::setPermissions(m_folder.path(), QFile::Permissions(0x5555)));
    ASSERT_TRUE(QFile::setPermissions(QFileInfo(m_folder.path()).path(), QFile::Permissions(0x7777)));
    std::optional<AudioFileTagError> error;
    test::asOrdinaryUser(
        [&] { error = test::errorOf<AudioFileTagError>([&] { return rewriteTarget(file); }); });
    EXPECT_EQ(error, AudioFileTagError::notWritable(file.url));
    ASSERT_TRUE(QFile::setPermissions(m_folder.path(), QFile::Permissions(0x7777)));
}

TEST_F(RefusedWrite, IsOneOfAFileOnAReadOnlyDisk)
{
    m_folder.makeSong(u"song.flac"_s);
    test::SmallDisk disk(m_folder.path(u"disk"_s), 1024);
    if (!disk.isMounted())
        GTEST_SKIP() << "mounting isn't permitted here";
    ASSERT_TRUE(QFile::copy(m_folder.path(u"song.flac"_s), m_folder.path(u"disk/a.flac"_s)));
    const EditableAudioFile file = m_folder.load(u"disk/a.flac"_s);
    ASSERT_NO_FATAL_FAILURE(disk.makeReadOnly());
    EXPECT_EQ(errorFor(file), AudioFileTagError::notWritable(file.url));
    EXPECT_EQ(test::namesIn(m_folder.path(u"disk"_s)), QStringList{u"a.flac"_s});
    EXPECT_EQ(m_folder.load(u"disk/a.flac"_s), file);
}

TEST_F(RefusedWrite, LooksAtTheFolderOfTheRealFile)
{
    ASSERT_TRUE(QDir().mkdir(m_folder.path(u"store"_s)));
    m_folder.makeSong(u"store/real.flac"_s);
    ASSERT_TRUE(QFile::link(m_folder.path(u"store/real.flac"_s), m_folder.path(u"My Song.flac"_s)));
    const RewriteTarget target = rewriteTarget(m_folder.load(u"My Song.flac"_s));
    EXPECT_EQ(target.original, QFileInfo(m_folder.path(u"store/real.flac"_s)).canonicalFilePath());
    EXPECT_EQ(QFileInfo(target.temporary).path(), QFileInfo(target.original).path());
    const QRegularExpression pattern(u"^\\.[0-9a-f]{8}(-[0-9a-f]{4}){3}-[0-9a-f]{12}-My Song\\.flac$"_s);
    EXPECT_TRUE(pattern.match(QFileInfo(target.temporary).fileName()).hasMatch())
        << target.temporary.toStdString();
}

TEST_F(RefusedWrite, CutsATemporaryNameThatIsTooLong)
{
    const QString name = QString(83, u'歌') + u"x.flac"_s;
    m_folder.makeSong(u"a.flac"_s);
    ASSERT_TRUE(QFile::rename(m_folder.path(u"a.flac"_s), m_folder.path(name)));
    const EditableAudioFile file = m_folder.load(name);
    const QString temporary = QFileInfo(rewriteTarget(file).temporary).fileName();
    EXPECT_LE(temporary.toUtf8().size(), 255);
    EXPECT_TRUE(temporary.endsWith(u"歌.flac"_s)) << temporary.toStdString();
    EXPECT_EQ(errorFor(file), std::nullopt);
    EXPECT_EQ(m_folder.tags(name).title, u"New Title"_s);
    EXPECT_EQ(test::namesIn(m_folder.path()), QStringList{name});
}

TEST_F(RefusedWrite, IsOneOfANameThatIsntUtf8)
{
    const std::filesystem::path odd = m_folder.path(u"x"_s).toStdString() + "\xFF.flac";
    std::filesystem::rename(m_folder.makeSong(u"a.flac"_s).toStdString(), odd);
    const EditableAudioFile file{
        .url = fileURL(odd), .tags = {}, .unreadableReason = {}, .modificationDate = {}};
    const auto error =
        test::awaitError<std::system_error>(m_folder.service().write(file, test::newTitle(), true, {}));
    ASSERT_TRUE(error);
    EXPECT_EQ(error->code(), std::errc::illegal_byte_sequence);
    EXPECT_TRUE(std::filesystem::remove(odd));
}

TEST_F(RefusedWrite, NamesTheTagsThatAnM4aWouldLose)
{
    m_folder.makeSong(u"a.m4a"_s);
    addIdentifiers(u"a.m4a"_s);
    const EditableAudioFile file = m_folder.load(u"a.m4a"_s);
    const QByteArray contents = test::readFile(m_folder.path(u"a.m4a"_s));

    EXPECT_EQ(test::await(m_folder.service().preflight(file, test::newTitle(), {})), identifierNames());
    EXPECT_TRUE(m_folder.temporaryFiles().isEmpty());
    EXPECT_EQ(errorFor(file), AudioFileTagError::wouldLoseTags(file.url, identifierNames()));

    EXPECT_EQ(test::namesIn(m_folder.path()), QStringList{u"a.m4a"_s});
    EXPECT_TRUE(test::readFile(m_folder.path(u"a.m4a"_s)) == contents);
    EXPECT_EQ(contentModificationDate(file.url), file.modificationDate);
}

TEST_F(RefusedWrite, IsCarriedOutIfTheLossIsAllowed)
{
    m_folder.makeSong(u"a.m4a"_s);
    addIdentifiers(u"a.m4a"_s);
    const EditableAudioFile file = m_folder.load(u"a.m4a"_s);
    EXPECT_EQ(m_folder.write(file, test::newTitle(), true), identifierNames());
    EXPECT_EQ(test::mutagenTags(m_folder.path(u"a.m4a"_s)).value(u"title"_s), QStringList{u"New Title"_s});
    EXPECT_EQ(test::namesIn(m_folder.path()), QStringList{u"a.m4a"_s});
}

} // namespace tonearm
