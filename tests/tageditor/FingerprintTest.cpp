// SPDX-License-Identifier: GPL-3.0-or-later
// Embedded pictures, taken out and told apart.
#include "helpers/Await.h"
#include "helpers/Contents.h"
#include "helpers/Printing.h"
#include "helpers/SongFolder.h"
#include "helpers/StandInTools.h"
#include "support/Cancellation.h"
#include "support/Digest.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

namespace tonearm {

using namespace Qt::StringLiterals;
using test::SongFolder;

namespace {

ArtworkFingerprint fingerprintOf(const SongFolder &folder, const QString &name)
{
    return test::await(folder.service().fingerprint(folder.load(name), {}));
}

EditableAudioFile fileWithPicture(const QUrl &url)
{
    EditableAudioFile file{.url = url, .tags = {}, .unreadableReason = {}, .modificationDate = {}};
    file.tags.hasAttachedPicture = true;
    return file;
}

class Fingerprint : public testing::TestWithParam<const char *>
{
protected:
    static QString name() { return u"song."_s + QString::fromLatin1(GetParam()); }

    SongFolder m_folder;
};

} // namespace

TEST_P(Fingerprint, IsOfThePicturesBytes)
{
    const QString cover = m_folder.makePicture(u"cover.jpg"_s, 70, 50);
    m_folder.makeSongWithCover(name(), cover);
    const ArtworkFingerprint found = fingerprintOf(m_folder, name());
    EXPECT_EQ(found.digest, sha256Hex(test::readFile(cover)));
    EXPECT_EQ(found.byteCount, QFileInfo(cover).size());
    EXPECT_EQ(found.pixelWidth, 70);
    EXPECT_EQ(found.pixelHeight, 50);
    EXPECT_TRUE(test::readFile(found.extractedURL.toLocalFile()) == test::readFile(cover));
}

TEST_P(Fingerprint, LeavesAPngAsItIs)
{
    const QString cover = m_folder.makePicture(u"cover.png"_s);
    m_folder.makeSongWithCover(name(), cover);
    EXPECT_EQ(fingerprintOf(m_folder, name()).digest, sha256Hex(test::readFile(cover)));
}

TEST_P(Fingerprint, IsTheSameForTheSameCoverInAnotherFile)
{
    const QString cover = m_folder.makePicture(u"cover.jpg"_s);
    m_folder.makeSongWithCover(name(), cover);
    m_folder.makeSongWithCover(u"other.flac"_s, cover);
    const ArtworkFingerprint first = fingerprintOf(m_folder, name());
    const ArtworkFingerprint second = fingerprintOf(m_folder, u"other.flac"_s);
    EXPECT_EQ(first.digest, second.digest);
    EXPECT_NE(first.extractedURL, second.extractedURL);
    EXPECT_EQ(m_folder.temporaryFiles().size(), 2);
}

INSTANTIATE_TEST_SUITE_P(Kinds, Fingerprint, testing::Values("flac", "mp3", "m4a"),
                         [](const auto &test) { return std::string(test.param); });

TEST(FingerprintFile, LiesInTheArtworkFolderUnderAUniqueName)
{
    const SongFolder folder;
    folder.makeSongWithCover(u"My Song. Part 1.flac"_s, folder.makePicture(u"cover.png"_s));
    const QFileInfo extracted(fingerprintOf(folder, u"My Song. Part 1.flac"_s).extractedURL.toLocalFile());
    EXPECT_TRUE(extracted.path().endsWith(u"/tmp/Tonearm/Artwork"_s)) << extracted.path().toStdString();
    const QRegularExpression pattern(
        u"^[0-9a-f]{8}(-[0-9a-f]{4}){3}-[0-9a-f]{12}-My Song. Part 1-embedded.jpg$"_s);
    EXPECT_TRUE(pattern.match(extracted.fileName()).hasMatch()) << extracted.fileName().toStdString();
}

TEST(FingerprintFile, HasANameThatFits)
{
    const SongFolder folder;
    const QString name = QString(83, u'歌') + u".flac"_s;
    folder.makeSongWithCover(u"a.flac"_s, folder.makePicture(u"cover.png"_s));
    ASSERT_TRUE(QFile::rename(folder.path(u"a.flac"_s), folder.path(name)));
    const QString extracted = fingerprintOf(folder, name).extractedURL.fileName();
    EXPECT_LE(extracted.toUtf8().size(), 255);
    EXPECT_TRUE(extracted.endsWith(u"歌-embedded.jpg"_s)) << extracted.toStdString();
}

TEST(FingerprintFile, IsFoundThoughTheSongsNameLooksLikeASeries)
{
    const SongFolder folder;
    folder.makeSongWithCover(u"a.flac"_s, folder.makePicture(u"cover.png"_s));
    for (const QString &name : {u"%d.flac"_s, u"100%.flac"_s, u"%%03d%.flac"_s}) {
        ASSERT_TRUE(QFile::copy(folder.path(u"a.flac"_s), folder.path(name)));
        EXPECT_GT(fingerprintOf(folder, name).byteCount, 0) << name.toStdString();
    }
    EXPECT_EQ(folder.temporaryFiles().size(), 3);
}

TEST(FingerprintFile, NeedsNoSize)
{
    const SongFolder folder;
    folder.makeSongWithCover(u"a.flac"_s, folder.makePicture(u"cover.png"_s));
    const EditableAudioFile row = fileWithPicture(folder.url(u"a.flac"_s));
    const ArtworkFingerprint found = test::await(folder.service().fingerprint(row, {}));
    EXPECT_EQ(found.pixelWidth, 0);
    EXPECT_EQ(found.pixelHeight, 0);
}

TEST(FingerprintFile, IsReadFourAtATime)
{
    const SongFolder folder;
    folder.makeSongWithCover(u"a.flac"_s, folder.makePicture(u"cover.png"_s));
    const EditableAudioFile row = fileWithPicture(folder.url(u"a.flac"_s));
    std::vector<QCoro::Task<ArtworkFingerprint>> tasks;
    for (int number = 0; number < 4; ++number)
        tasks.push_back(folder.service().fingerprint(row, {}));
    QSet<QUrl> places;
    for (QCoro::Task<ArtworkFingerprint> &task : tasks)
        places.insert(test::await(std::move(task)).extractedURL);
    EXPECT_EQ(places.size(), 4);
}

TEST(FingerprintFailure, TellsOfAFileWithoutAPicture)
{
    const SongFolder folder;
    folder.makeSong(u"a.flac"_s);
    EXPECT_EQ(test::awaitError<AudioFileTagError>(folder.service().fingerprint(folder.load(u"a.flac"_s), {})),
              AudioFileTagError::noAttachedPicture(folder.url(u"a.flac"_s)));
    EXPECT_TRUE(folder.temporaryFiles().isEmpty());
}

TEST(FingerprintFailure, LeavesNothingOfAPictureThatCantBeTakenOut)
{
    const SongFolder folder;
    folder.makeSong(u"a.flac"_s);
    const EditableAudioFile row = fileWithPicture(folder.url(u"a.flac"_s));
    EXPECT_TRUE(test::awaitError<ProcessRunnerError>(folder.service().fingerprint(row, {})));
    EXPECT_TRUE(folder.temporaryFiles().isEmpty());
}

TEST(FingerprintFailure, LeavesNothingOfAToolThatDies)
{
    test::StandInTools tools;
    tools.add(u"ffmpeg"_s, R"(for output; do :; done; echo half > "$output"; kill -9 $$)");
    const SongFolder folder(tools.location());
    const EditableAudioFile row = fileWithPicture(folder.url(u"a.flac"_s));
    EXPECT_TRUE(test::awaitError<ProcessRunnerError>(folder.service().fingerprint(row, {})));
    EXPECT_TRUE(folder.temporaryFiles().isEmpty());
}

TEST(FingerprintFailure, LeavesNothingWhenItIsStopped)
{
    test::StandInTools tools;
    tools.add(u"ffmpeg"_s,
              R"(for output; do :; done; echo half > "$output"; : > "$here/started"; exec sleep 60)");
    const SongFolder folder(tools.location());
    std::stop_source source;
    auto task = folder.service().fingerprint(fileWithPicture(folder.url(u"a.flac"_s)), source.get_token());
    ASSERT_TRUE(tools.waitFor(u"started"_s));
    source.request_stop();
    EXPECT_TRUE(test::awaitError<CancellationError>(std::move(task)));
    EXPECT_TRUE(folder.temporaryFiles().isEmpty());
}

TEST(FingerprintFailure, TellsOfAToolThatMakesNothing)
{
    test::StandInTools tools;
    tools.add(u"ffmpeg"_s, "exit 0");
    const SongFolder folder(tools.location());
    const EditableAudioFile row = fileWithPicture(folder.url(u"a.flac"_s));
    const auto error = test::awaitError<std::system_error>(folder.service().fingerprint(row, {}));
    ASSERT_TRUE(error);
    EXPECT_EQ(error->code(), std::errc::no_such_file_or_directory);
}

TEST(FingerprintFailure, PassesOnThatTheFolderCantBeMade)
{
    const SongFolder folder;
    test::writeFile(folder.path(u"file"_s), {});
    const AudioFileTagService service(test::shippedTools(), folder.path(u"file"_s));
    const EditableAudioFile row = fileWithPicture(folder.url(u"a.flac"_s));
    const auto error = test::awaitError<std::system_error>(service.fingerprint(row, {}));
    ASSERT_TRUE(error);
    EXPECT_EQ(error->code(), std::errc::not_a_directory);
}

TEST(FingerprintCommand, CopiesTheFirstVideoStream)
{
    test::StandInTools tools;
    tools.add(u"ffmpeg"_s, R"(
for output; do :; done
printf '%s\n' "$@" > "$here/arguments"
printf abc > "$output")");
    const SongFolder folder(tools.location());
    const EditableAudioFile row = fileWithPicture(folder.url(u"a.flac"_s));
    const ArtworkFingerprint found = test::await(folder.service().fingerprint(row, {}));
    EXPECT_EQ(found.digest, u"ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad"_s);
    EXPECT_EQ(found.byteCount, 3);
    EXPECT_EQ(QString::fromUtf8(test::readFile(tools.path(u"arguments"_s))),
              u"-hide_banner\n-v\nerror\n-y\n-i\n"_s + folder.path(u"a.flac"_s) +
                  u"\n-map\n0:v:0\n-c\ncopy\n"_s + found.extractedURL.toLocalFile() + u'\n');
}

} // namespace tonearm
