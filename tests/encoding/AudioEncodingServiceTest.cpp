// SPDX-License-Identifier: GPL-3.0-or-later
#include "encoding/AudioEncodingService.h"

#include "helpers/Await.h"
#include "helpers/Contents.h"
#include "helpers/OrdinaryUser.h"
#include "helpers/Printing.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <filesystem>
#include <optional>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

AudioEncodingService service()
{
    return AudioEncodingService(ToolLocation(std::nullopt));
}

QList<ChapterInfo> titled(const QStringList &titles)
{
    QList<ChapterInfo> result;
    for (const QString &title : titles)
        result.append({.id = result.size(), .mappedTitle = title});
    return result;
}

std::optional<AudioEncodingError> validationError(const QList<ChapterInfo> &chapters,
                                                  const AudioMetadata &metadata = {})
{
    return test::errorOf<AudioEncodingError>([&] { service().validate(chapters, metadata); });
}

std::optional<AudioEncodingError> preparationError(const QString &path)
{
    return test::errorOf<AudioEncodingError>(
        [&] { service().prepareOutputDirectory(QUrl::fromLocalFile(path)); });
}

QString folderFor(const QString &base, const AudioMetadata &metadata, bool organize = true)
{
    return service().outputDirectory(QUrl::fromLocalFile(base), metadata, organize).toLocalFile();
}

} // namespace

TEST(AudioEncodingService, AsksForChaptersFirst)
{
    const AudioMetadata unreadableCover = {.coverArtURL = QUrl::fromLocalFile(u"/nonexistent/c.jpg"_s)};
    EXPECT_EQ(validationError({}, unreadableCover), AudioEncodingError::noChapters());
}

TEST(AudioEncodingService, AsksForEveryTitleBeforeTheCover)
{
    const AudioMetadata unreadableCover = {.coverArtURL = QUrl::fromLocalFile(u"/nonexistent/c.jpg"_s)};
    EXPECT_EQ(validationError(titled({u"A"_s, u" \n"_s, u""_s}), unreadableCover),
              AudioEncodingError::untitledChapters(2));
}

TEST(AudioEncodingService, AsksForAReadableCover)
{
    const QTemporaryDir folder;
    const QString cover = folder.filePath(u"50% cover.jpg"_s);
    const AudioMetadata metadata = {.coverArtURL = QUrl::fromLocalFile(cover)};
    EXPECT_EQ(validationError(titled({u"A"_s}), metadata),
              AudioEncodingError::coverArtUnreadable(*metadata.coverArtURL));
    test::writeFile(cover, "x");
    EXPECT_EQ(validationError(titled({u"A"_s}), metadata), std::nullopt);
}

TEST(AudioEncodingService, AcceptsTitledChaptersWithoutACover)
{
    EXPECT_EQ(validationError(titled({u"A"_s, u"."_s})), std::nullopt);
}

TEST(AudioEncodingService, MakesTheOutputFolderWithItsParents)
{
    const QTemporaryDir folder;
    const QString wanted = folder.filePath(u"a b/50% %41/#1"_s);
    EXPECT_EQ(preparationError(wanted), std::nullopt);
    EXPECT_TRUE(QFileInfo(wanted).isDir());
    EXPECT_EQ(preparationError(wanted), std::nullopt) << "and takes one that is there";
}

TEST(AudioEncodingService, RefusesAFileWhereTheOutputFolderShouldBe)
{
    const QTemporaryDir folder;
    const QString file = folder.filePath(u"file"_s);
    test::writeFile(file, "x");
    EXPECT_EQ(preparationError(file),
              AudioEncodingError::outputDirectoryUnavailable(QUrl::fromLocalFile(file)));
    const QString below = file + u"/below"_s;
    EXPECT_EQ(preparationError(below),
              AudioEncodingError::outputDirectoryUnavailable(QUrl::fromLocalFile(below)));
}

TEST(AudioEncodingService, RefusesALinkThatLeadsNowhereAsOutputFolder)
{
    const QTemporaryDir folder;
    const QString link = folder.filePath(u"link"_s);
    ASSERT_TRUE(QFile::link(folder.filePath(u"gone"_s), link));
    EXPECT_EQ(preparationError(link),
              AudioEncodingError::outputDirectoryUnavailable(QUrl::fromLocalFile(link)));
}

TEST(AudioEncodingService, RefusesAnOutputFolderWithoutPermissionToWrite)
{
    const QTemporaryDir folder;
    const QString closed = folder.filePath(u"closed"_s);
    const std::string path = closed.toStdString();
    std::filesystem::create_directory(path);
    // Others may pass through the temporary folder and look into the one inside.
    std::filesystem::permissions(folder.path().toStdString(), std::filesystem::perms(0755));
    std::filesystem::permissions(path, std::filesystem::perms(0555));

    std::optional<AudioEncodingError> existing;
    std::optional<AudioEncodingError> wanted;
    test::asOrdinaryUser([&] {
        existing = preparationError(closed);
        wanted = preparationError(closed + u"/new"_s);
    });
    EXPECT_EQ(existing, AudioEncodingError::outputDirectoryNotWritable(QUrl::fromLocalFile(closed)));
    EXPECT_EQ(wanted,
              AudioEncodingError::outputDirectoryUnavailable(QUrl::fromLocalFile(closed + u"/new"_s)));
}

TEST(AudioEncodingService, UsesTheBaseFolderUnlessItOrganizes)
{
    EXPECT_EQ(folderFor(u"/music"_s, {.artist = u"A"_s, .album = u"B"_s}, false), u"/music"_s);
}

TEST(AudioEncodingService, OrganizesIntoArtistAndAlbum)
{
    EXPECT_EQ(folderFor(u"/music"_s, {.artist = u"AC/DC"_s, .album = u"Live: 50% & #1?"_s}),
              u"/music/AC-DC/Live- 50% & #1"_s);
    EXPECT_EQ(folderFor(u"/music/"_s, {.artist = u"A"_s, .album = u"B"_s}), u"/music/A/B"_s);
    EXPECT_EQ(folderFor(u"/"_s, {.artist = u"A"_s, .album = u"B"_s}), u"/A/B"_s);
}

TEST(AudioEncodingService, LeavesOutAFolderWithoutAName)
{
    EXPECT_EQ(folderFor(u"/music"_s, {.artist = u"..."_s, .album = u"B"_s}), u"/music/B"_s);
    EXPECT_EQ(folderFor(u"/music"_s, {.artist = u""_s, .album = u"B"_s}), u"/music/B"_s);
    EXPECT_EQ(folderFor(u"/music"_s, {.artist = u"A"_s, .album = u"?"_s}), u"/music/A"_s);
    EXPECT_EQ(folderFor(u"/music"_s, {}), u"/music"_s);
}

TEST(AudioEncodingService, FindsTheFilesItWouldOverwrite)
{
    const QTemporaryDir folder;
    const auto place = [&](const QString &name) { return QUrl::fromLocalFile(folder.filePath(name)); };
    test::writeFile(folder.filePath(u"03-C.flac"_s), "x");
    test::writeFile(folder.filePath(u"01-A-B.flac"_s), "x");
    test::writeFile(folder.filePath(u"04-C.flac"_s), "x");
    test::writeFile(folder.filePath(u"02-b.flac"_s), "x");
    const auto chapters = titled({u"A/B"_s, u"B"_s, u"C"_s});
    EXPECT_EQ(service().existingOutputs(chapters, QUrl::fromLocalFile(folder.path())),
              (QList<QUrl>{place(u"01-A-B.flac"_s), place(u"03-C.flac"_s)}));
    EXPECT_EQ(service().existingOutputs(chapters, place(u"gone"_s)), QList<QUrl>());
}

TEST(AudioEncodingService, NamesFilesAndBuildsArgumentsByTheSharedRules)
{
    EXPECT_EQ(service().outputFilename(u"A"_s, 3), u"03-A.flac"_s);
    const TrackEncoding track = {.chapter = {.mappedTitle = u"A"_s}, .number = 1, .total = 2};
    EXPECT_EQ(service().arguments(track), ffmpegArguments(track));
}

} // namespace tonearm
