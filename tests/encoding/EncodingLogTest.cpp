// SPDX-License-Identifier: GPL-3.0-or-later
#include "encoding/EncodingLog.h"

#include "helpers/Await.h"
#include "helpers/Contents.h"
#include "helpers/Printing.h"
#include "helpers/Surroundings.h"
#include "support/FileName.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <sys/resource.h>

#include <csignal>
#include <system_error>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

EncodingLog logOf(const QString &artist, const QString &album)
{
    EncodingLog log;
    log.startedAt = QDateTime(QDate(2026, 1, 5), QTime(12, 4, 5), Qt::UTC);
    log.artist = artist;
    log.album = album;
    return log;
}

QString nameOf(const QString &artist, const QString &album)
{
    const test::TimeZone zone("TST-3");
    return logOf(artist, album).fileName();
}

// The log's folder for a job whose folders are these; empty stands for absent.
QString directoryFor(const QString &outputFolder, const QString &destinationFolder)
{
    EncodingLog log;
    if (!outputFolder.isEmpty())
        log.outputFolder = QUrl::fromLocalFile(outputFolder);
    if (!destinationFolder.isEmpty())
        log.destinationFolder = QUrl::fromLocalFile(destinationFolder);
    return logDirectory(log);
}

std::optional<std::system_error> writeError(const EncodingLog &log, const QString &directory)
{
    return test::errorOf<std::system_error>([&] { return writeEncodingLog(log, directory); });
}

// No file of this process grows beyond so many bytes, for the life of this object.
class FileSizeLimit
{
public:
    explicit FileSizeLimit(rlim_t bytes)
        : m_signalBefore(std::signal(SIGXFSZ, SIG_IGN))
    {
        ::getrlimit(RLIMIT_FSIZE, &m_before);
        const rlimit limited = {bytes, m_before.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &limited);
    }

    ~FileSizeLimit()
    {
        ::setrlimit(RLIMIT_FSIZE, &m_before);
        std::signal(SIGXFSZ, m_signalBefore);
    }

    FileSizeLimit(const FileSizeLimit &) = delete;
    FileSizeLimit &operator=(const FileSizeLimit &) = delete;

private:
    rlimit m_before = {};
    void (*m_signalBefore)(int);
};

} // namespace

TEST(EncodingLogFileName, IsMadeOfTheStartAndTheAlbum)
{
    EXPECT_EQ(nameOf(u"Some Artist"_s, u"Some Album"_s),
              u"2026-01-05 15-04-05 Some Artist - Some Album.log"_s);
}

TEST(EncodingLogFileName, LeavesOutWhatIsEmpty)
{
    EXPECT_EQ(nameOf(u" \n"_s, u""_s), u"2026-01-05 15-04-05.log"_s);
    EXPECT_EQ(nameOf(u" Some Artist\n"_s, u" "_s), u"2026-01-05 15-04-05 Some Artist.log"_s);
    EXPECT_EQ(nameOf(u""_s, u"Some Album"_s), u"2026-01-05 15-04-05 Some Album.log"_s);
}

TEST(EncodingLogFileName, IsCleanedLikeAFolder)
{
    EXPECT_EQ(nameOf(u"AC/DC"_s, u"Live?"_s), u"2026-01-05 15-04-05 AC-DC - Live.log"_s);
    EXPECT_EQ(nameOf(u"..."_s, u"---"_s), u"2026-01-05 15-04-05.log"_s);
}

TEST(EncodingLogFileName, IsTheSameInEveryLocale)
{
    for (const char *name : {"de_DE", "tr_TR", "ja_JP", "ar_EG", "th_TH"}) {
        const test::Locale locale(name);
        EXPECT_EQ(nameOf(u"A"_s, u"B"_s), u"2026-01-05 15-04-05 A - B.log"_s) << name;
    }
}

TEST(EncodingLogFileName, FitsIntoTheFileSystemsBytes)
{
    const QString name = nameOf(QString(120, u'語'), u"B"_s);
    EXPECT_EQ(name, u"2026-01-05 15-04-05 "_s + QString(77, u'語') + u".log"_s);
    EXPECT_EQ(name.toUtf8().size(), maximumNameBytes);
}

TEST(EncodingLogDirectory, IsTheDestinationIfThatIsThere)
{
    const QTemporaryDir folder;
    EXPECT_EQ(directoryFor(u"/elsewhere"_s, folder.path()), folder.path());
}

TEST(EncodingLogDirectory, IsTheOutputFolderWhenTheDestinationHasGone)
{
    EXPECT_EQ(directoryFor(u"/elsewhere"_s, u"/gone/from here"_s), u"/elsewhere"_s);
    EXPECT_EQ(directoryFor(u"/elsewhere"_s, {}), u"/elsewhere"_s);
}

TEST(EncodingLogDirectory, IsTheMissingDestinationBeforeATemporaryFolder)
{
    EXPECT_EQ(directoryFor({}, u"/gone/50% here"_s), u"/gone/50% here"_s);
    EXPECT_EQ(directoryFor({}, {}), QDir::tempPath());
}

TEST(EncodingLogWrite, MakesTheFolderAndWritesTheText)
{
    const QTemporaryDir folder;
    const QString directory = folder.filePath(u"50% off/日本"_s);
    const EncodingLog log = logOf(u"Größe"_s, u"#1"_s);
    const QUrl url = writeEncodingLog(log, directory);
    EXPECT_EQ(url, QUrl::fromLocalFile(directory + u'/' + log.fileName()));
    EXPECT_EQ(test::readFile(url.toLocalFile()), log.text().toUtf8());
    EXPECT_EQ(test::namesIn(directory), QStringList{log.fileName()});
}

TEST(EncodingLogWrite, ReplacesAnOlderLog)
{
    const QTemporaryDir folder;
    const EncodingLog log = logOf(u"A"_s, u"B"_s);
    test::writeFile(folder.filePath(log.fileName()), QByteArray(100000, 'x'));
    const QUrl url = writeEncodingLog(log, folder.path());
    EXPECT_EQ(test::readFile(url.toLocalFile()), log.text().toUtf8());
    EXPECT_EQ(test::namesIn(folder.path()), QStringList{log.fileName()});
}

TEST(EncodingLogWrite, ReplacesALinkInsteadOfWritingThroughIt)
{
    const QTemporaryDir folder;
    const QTemporaryDir elsewhere;
    const EncodingLog log = logOf(u"A"_s, u"B"_s);
    test::writeFile(elsewhere.filePath(u"precious"_s), "precious");
    ASSERT_TRUE(QFile::link(elsewhere.filePath(u"precious"_s), folder.filePath(log.fileName())));
    const QUrl url = writeEncodingLog(log, folder.path());
    EXPECT_FALSE(QFileInfo(url.toLocalFile()).isSymLink());
    EXPECT_EQ(test::readFile(url.toLocalFile()), log.text().toUtf8());
    EXPECT_EQ(test::readFile(elsewhere.filePath(u"precious"_s)), "precious");
}

TEST(EncodingLogWrite, TakesTheLongestName)
{
    const QTemporaryDir folder;
    const EncodingLog log = logOf(QString(120, u'語'), u"B"_s);
    ASSERT_GE(log.fileName().toUtf8().size(), maximumNameBytes - 2);
    EXPECT_EQ(test::readFile(writeEncodingLog(log, folder.path()).toLocalFile()), log.text().toUtf8());
}

TEST(EncodingLogWrite, FailsWhereNoFolderCanBe)
{
    const QTemporaryDir folder;
    const QString file = folder.filePath(u"file"_s);
    test::writeFile(file, "x");
    for (const QString &directory : {file, QString(file + u"/below"_s)}) {
        const auto error = writeError(logOf(u"A"_s, u"B"_s), directory);
        ASSERT_TRUE(error.has_value());
        EXPECT_EQ(error->code(), std::errc::not_a_directory);
        EXPECT_TRUE(QString::fromUtf8(error->what()).startsWith(directory)) << error->what();
    }
}

TEST(EncodingLogWrite, LeavesNothingBehindWhenTheTextCantBeWritten)
{
    const QTemporaryDir folder;
    const EncodingLog log = logOf(u"A"_s, u"B"_s);
    test::writeFile(folder.filePath(log.fileName()), "older");
    std::optional<std::system_error> error;
    {
        const FileSizeLimit limit(20);
        error = writeError(log, folder.path());
    }
    ASSERT_TRUE(error.has_value());
    EXPECT_EQ(error->code(), std::errc::file_too_large);
    EXPECT_TRUE(QString::fromUtf8(error->what()).startsWith(folder.filePath(log.fileName())))
        << error->what();
    EXPECT_EQ(test::namesIn(folder.path()), QStringList{log.fileName()});
    EXPECT_EQ(test::readFile(folder.filePath(log.fileName())), "older");
}

TEST(EncodingLogWrite, LeavesNothingBehindWhereAFolderHasTheName)
{
    const QTemporaryDir folder;
    const EncodingLog log = logOf(u"A"_s, u"B"_s);
    ASSERT_TRUE(QDir(folder.path()).mkdir(log.fileName()));
    EXPECT_TRUE(writeError(log, folder.path()).has_value());
    EXPECT_EQ(test::namesIn(folder.path()), QStringList{log.fileName()});
}

} // namespace tonearm
