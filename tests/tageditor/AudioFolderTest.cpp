// SPDX-License-Identifier: GPL-3.0-or-later
#include "tageditor/AudioFolder.h"

#include "helpers/Await.h"
#include "helpers/Contents.h"
#include "helpers/OrdinaryUser.h"
#include "helpers/Printing.h"
#include "support/PathText.h"
#include "tageditor/FilePath.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QSet>
#include <QTemporaryDir>

#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <system_error>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

class AudioFolder : public testing::Test
{
protected:
    // QTemporaryDir leaves behind what it can't name.
    ~AudioFolder() override
    {
        std::error_code ignored;
        std::filesystem::remove_all(m_folder.path().toStdString(), ignored);
    }

    QString path(const QString &name) const { return m_folder.filePath(name); }

    void add(const QStringList &names) const
    {
        for (const QString &name : names)
            test::writeFile(path(name), {});
    }

    // For names that no QString can hold.
    void addBytes(const std::string &name) const
    {
        const std::ofstream file(m_folder.path().toStdString() + '/' + name);
        ASSERT_TRUE(file);
    }

    AudioFolderContents contents() const { return audioFolderContents(QUrl::fromLocalFile(m_folder.path())); }

    QStringList names() const
    {
        QStringList result;
        for (const QUrl &url : contents().files)
            result.append(lastPathComponent(url));
        return result;
    }

private:
    QTemporaryDir m_folder;
};

} // namespace

TEST_F(AudioFolder, ListsTheThreeKindsInAnyCase)
{
    add({u"SONG.MP3"_s, u"a.flac"_s, u"b.M4a"_s, u"notes.txt"_s, u"mp3"_s, u"flac.jpg"_s, u"c.flac.part"_s});
    EXPECT_EQ(names(), (QStringList{u"a.flac"_s, u"b.M4a"_s, u"SONG.MP3"_s}));
    EXPECT_EQ(contents().skippedCount, 0);
}

TEST_F(AudioFolder, CountsTheAudioFilesThatItLeavesOut)
{
    add({u"a.m4b"_s, u"a.aac"_s, u"a.wav"_s, u"a.AIFF"_s, u"a.aif"_s, u"a.ogg"_s, u"a.opus"_s, u"a.wma"_s,
         u"a.dsf"_s, u"a.mkv"_s, u"a.ape"_s, u"a.flac"_s});
    EXPECT_EQ(names(), QStringList{u"a.flac"_s});
    EXPECT_EQ(contents().skippedCount, 9);
}

TEST_F(AudioFolder, IsEmptyWithACountForAFolderOfWavFiles)
{
    add({u"a.wav"_s, u"b.wav"_s});
    EXPECT_EQ(contents(), (AudioFolderContents{.files = {}, .skippedCount = 2}));
}

TEST_F(AudioFolder, PassesOverHiddenFilesAndFolders)
{
    add({u".hidden.flac"_s, u".hidden.wav"_s, u".mp3"_s, u"shown.flac"_s});
    ASSERT_TRUE(QDir().mkdir(path(u"live.flac"_s)));
    ASSERT_TRUE(QDir().mkdir(path(u"live.wav"_s)));
    add({u"live.flac/inside.flac"_s});
    EXPECT_EQ(contents(), (AudioFolderContents{.files = {QUrl::fromLocalFile(path(u"shown.flac"_s))},
                                               .skippedCount = 0}));
}

TEST_F(AudioFolder, OrdersNumbersByTheirValueAndLettersRegardlessOfCase)
{
    add({u"10.flac"_s, u"2.flac"_s, u"1.flac"_s, u"b 2.mp3"_s, u"B 10.mp3"_s, u"b 1.mp3"_s, u"A.m4a"_s});
    EXPECT_EQ(names(), (QStringList{u"1.flac"_s, u"2.flac"_s, u"10.flac"_s, u"A.m4a"_s, u"b 1.mp3"_s,
                                    u"b 2.mp3"_s, u"B 10.mp3"_s}));
}

TEST_F(AudioFolder, AlwaysOrdersNamesThatDifferInCaseAloneAlike)
{
    add({u"song.flac"_s, u"Song.flac"_s, u"SONG.flac"_s});
    EXPECT_EQ(names(), (QStringList{u"SONG.flac"_s, u"Song.flac"_s, u"song.flac"_s}));
}

TEST_F(AudioFolder, FollowsLinksAndShowsThoseThatLeadNowhere)
{
    add({u"real.txt"_s});
    ASSERT_TRUE(QDir().mkdir(path(u"folder"_s)));
    ASSERT_TRUE(QFile::link(path(u"real.txt"_s), path(u"link.flac"_s)));
    ASSERT_TRUE(QFile::link(path(u"folder"_s), path(u"folder.flac"_s)));
    ASSERT_TRUE(QFile::link(path(u"gone"_s), path(u"broken.flac"_s)));
    ASSERT_TRUE(QFile::link(path(u"loop.flac"_s), path(u"loop.flac"_s)));
    EXPECT_EQ(names(), (QStringList{u"broken.flac"_s, u"link.flac"_s, u"loop.flac"_s}));
}

TEST_F(AudioFolder, LeavesOutWhatWouldKeepAReaderWaiting)
{
    ASSERT_EQ(::mkfifo(QFile::encodeName(path(u"pipe.flac"_s)).constData(), 0600), 0);
    ASSERT_EQ(::mkfifo(QFile::encodeName(path(u"pipe.wav"_s)).constData(), 0600), 0);
    EXPECT_EQ(contents(), AudioFolderContents());
}

TEST_F(AudioFolder, KeepsNamesOfEveryScript)
{
    const QStringList names = {
        u"Größe.flac"_s,  u"Gro\u0308ße 2.flac"_s, u"Ελληνικά.flac"_s,      u"Русский.flac"_s,
        u"日本語.flac"_s, u"한국어.flac"_s,        u"العربية.flac"_s,       u"עברית.flac"_s,
        u"ไทย.flac"_s,    u"हिन्दी.flac"_s,         u"👩‍🎤.flac"_s,   u"\u202Ertl.flac"_s,
        u"a\nb.flac"_s,   u"a\\b\"c'd.flac"_s,     u"100%25 %41 %d.flac"_s, u"#1?;&=+ .flac"_s,
        u"-i.flac"_s,     u"file:x.flac"_s,        u"\uFFFD.flac"_s};
    add(names);
    const QList<QUrl> found = contents().files;
    EXPECT_EQ(found.size(), names.size());
    for (const QString &name : names)
        EXPECT_TRUE(found.contains(QUrl::fromLocalFile(path(name)))) << name.toStdString();
    for (const QUrl &url : found)
        EXPECT_TRUE(QFile::exists(textPath(url))) << url.toString().toStdString();
}

TEST_F(AudioFolder, ListsNamesThatArentUtf8EachByItself)
{
    addBytes("Gr\xF6\xDF"
             "e.flac");
    addBytes("Gr\xF6\xDE"
             "e.flac");
    add({u"Gr\uFFFD\uFFFDe.flac"_s});
    const AudioFolderContents found = contents();
    ASSERT_EQ(found.files.size(), 3);
    EXPECT_EQ(QSet<QUrl>(found.files.begin(), found.files.end()).size(), 3);
    for (const QUrl &url : found.files) {
        EXPECT_EQ(lastPathComponent(url), u"Gr\uFFFD\uFFFDe.flac"_s);
        EXPECT_TRUE(std::filesystem::exists(nativePath(url)));
    }
    EXPECT_TRUE(found.files.contains(QUrl::fromLocalFile(path(u"Gr\uFFFD\uFFFDe.flac"_s))));
}

TEST_F(AudioFolder, ListsAFolderWhoseOwnNameIsntUtf8)
{
    const std::filesystem::path folder = path(u"x"_s).toStdString() + "\xFF";
    std::filesystem::create_directory(folder);
    const std::ofstream file(folder / "a.flac");
    const QList<QUrl> found = audioFolderContents(fileURL(folder)).files;
    ASSERT_EQ(found.size(), 1);
    EXPECT_EQ(nativePath(found.first()), folder / "a.flac");
}

TEST_F(AudioFolder, ListsTenThousandFilesInOrder)
{
    constexpr int count = 10000;
    QStringList expected;
    for (int number = 1; number <= count; ++number)
        expected.append(u"Track %1.flac"_s.arg(number));
    add(expected);
    EXPECT_EQ(names(), expected);
}

TEST_F(AudioFolder, FailsForAFolderThatIsntThere)
{
    const QUrl gone = QUrl::fromLocalFile(path(u"gone"_s));
    const auto error = test::errorOf<std::system_error>([&] { return audioFolderContents(gone); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->code(), std::errc::no_such_file_or_directory);
}

TEST_F(AudioFolder, FailsForAFolderThatMayNotBeRead)
{
    ASSERT_TRUE(QDir().mkdir(path(u"closed"_s)));
    ASSERT_TRUE(QFile::setPermissions(path(u"closed"_s), {}));
    std::optional<std::system_error> error;
    test::asOrdinaryUser([&] {
        error = test::errorOf<std::system_error>(
            [&] { return audioFolderContents(QUrl::fromLocalFile(path(u"closed"_s))); });
    });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->code(), std::errc::permission_denied);
}

} // namespace tonearm
