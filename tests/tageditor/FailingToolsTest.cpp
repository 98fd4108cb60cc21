// SPDX-License-Identifier: GPL-3.0-or-later
// Saves with an ffmpeg that does something else: the song stays as it was, to the byte.
#include "helpers/Await.h"
#include "helpers/Contents.h"
#include "helpers/FFmpegStandIn.h"
#include "helpers/Printing.h"
#include "helpers/SongFolder.h"
#include "support/Cancellation.h"
#include "tageditor/Writes.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QFile>

namespace tonearm {

using namespace Qt::StringLiterals;
using test::FFmpegStandIn;
using test::SongFolder;
using testing::HasSubstr;

namespace {

// A song of one of the kinds, and what it was before.
class FailingTools : public testing::TestWithParam<const char *>
{
protected:
    static QString name() { return u"song."_s + QString::fromLatin1(GetParam()); }

    void SetUp() override
    {
        const SongFolder maker;
        m_cover = maker.makePicture(u"cover.jpg"_s);
        m_contents = test::readFile(maker.makeSongWithCover(name(), m_cover));
    }

    // Makes the song in a folder whose service has the tool that fails.
    EditableAudioFile prepare(const SongFolder &folder) const
    {
        test::writeFile(folder.path(name()), m_contents);
        return folder.load(name());
    }

    void expectUntouched(const SongFolder &folder) const
    {
        EXPECT_EQ(test::namesIn(folder.path()), QStringList{name()});
        EXPECT_TRUE(test::readFile(folder.path(name())) == m_contents);
        EXPECT_TRUE(folder.temporaryFiles().isEmpty());
    }

    template <typename Error>
    std::optional<Error> errorOf(const QByteArray &ffmpeg, bool allowingLoss = true) const
    {
        const FFmpegStandIn tools(ffmpeg);
        const SongFolder folder(tools.location());
        const EditableAudioFile file = prepare(folder);
        const auto error =
            test::awaitError<Error>(folder.service().write(file, test::newTitle(), allowingLoss, {}));
        expectUntouched(folder);
        EXPECT_EQ(folder.load(name()), file);
        return error;
    }

    template <typename Error> std::optional<Error> preflightErrorOf(const QByteArray &ffmpeg) const
    {
        const FFmpegStandIn tools(ffmpeg);
        const SongFolder folder(tools.location());
        const EditableAudioFile file = prepare(folder);
        const auto error = test::awaitError<Error>(folder.service().preflight(file, test::newTitle(), {}));
        expectUntouched(folder);
        return error;
    }

    void expectMalformed(const QByteArray &ffmpeg, const QString &fault) const
    {
        for (const auto &error :
             {errorOf<AudioFileTagError>(ffmpeg), preflightErrorOf<AudioFileTagError>(ffmpeg)}) {
            ASSERT_TRUE(error);
            EXPECT_EQ(error->kind, AudioFileTagError::Kind::malformedOutput);
            EXPECT_THAT(error->text.toStdString(), HasSubstr(fault.toStdString()));
        }
    }

private:
    QString m_cover;
    QByteArray m_contents;
};

} // namespace

TEST_P(FailingTools, DieHalfway)
{
    const QByteArray body = R"(head -c 5000 "$0" > "$output"; kill -9 $$)";
    EXPECT_EQ(errorOf<ProcessRunnerError>(body), ProcessRunnerError::nonZeroExit(u"ffmpeg"_s, 9, {}));
    EXPECT_EQ(preflightErrorOf<ProcessRunnerError>(body),
              ProcessRunnerError::nonZeroExit(u"ffmpeg"_s, 9, {}));
}

TEST_P(FailingTools, FailWithAWholeFile)
{
    const QByteArray body = R"("$ffmpeg" "$@"; echo "No space left" >&2; exit 1)";
    const auto expected = ProcessRunnerError::nonZeroExit(u"ffmpeg"_s, 1, u"No space left\n"_s);
    EXPECT_EQ(errorOf<ProcessRunnerError>(body), expected);
    EXPECT_EQ(preflightErrorOf<ProcessRunnerError>(body), expected);
}

TEST_P(FailingTools, WriteGarbage)
{
    expectMalformed(
        R"(head -c 50000 /dev/urandom > "$output")",
        u"The rewritten copy of \"%1\" couldn't be read, so the file was left unchanged."_s.arg(name()));
}

TEST_P(FailingTools, WriteNothing)
{
    expectMalformed("exit 0", u"couldn't be read, so the file was left unchanged."_s);
    expectMalformed(R"(rm -f "$output")", u"couldn't be read, so the file was left unchanged."_s);
}

TEST_P(FailingTools, LoseTheSound)
{
    expectMalformed(
        R"("$ffmpeg" -v error -y -i "$6" -map 0:v -c copy -f ipod "$output")",
        u"The rewritten copy of \"%1\" has lost its audio, so the file was left unchanged."_s.arg(name()));
}

TEST_P(FailingTools, LoseTheEndOfTheSound)
{
    const QByteArray body =
        R"("$ffmpeg" "$@" -t 1.5 && "$ffmpeg" -v error -y -i "$6" -map 0 -c copy -t 1.5 "$output")";
    const auto error = errorOf<AudioFileTagError>(body);
    EXPECT_EQ(
        error,
        AudioFileTagError::malformedOutput(
            u"The rewritten copy of \"%1\" has lost some of its audio, so the file was left unchanged."_s.arg(
                name())));
}

TEST_P(FailingTools, HangUntilTheyAreStopped)
{
    const FFmpegStandIn tools(R"(head -c 5000 "$0" > "$output"; : > "$here/started"; exec sleep 60)");
    const SongFolder folder(tools.location());
    const EditableAudioFile file = prepare(folder);
    std::stop_source source;
    auto task = folder.service().write(file, test::newTitle(), false, source.get_token());
    ASSERT_TRUE(tools.waitFor(u"started"_s));
    source.request_stop();
    EXPECT_TRUE(test::awaitError<CancellationError>(std::move(task)));
    expectUntouched(folder);
}

TEST_P(FailingTools, HangInAPreflightUntilTheyAreStopped)
{
    const FFmpegStandIn tools(R"(head -c 5000 "$0" > "$output"; : > "$here/started"; exec sleep 60)");
    const SongFolder folder(tools.location());
    const EditableAudioFile file = prepare(folder);
    std::stop_source source;
    auto task = folder.service().preflight(file, test::newTitle(), source.get_token());
    ASSERT_TRUE(tools.waitFor(u"started"_s));
    source.request_stop();
    EXPECT_TRUE(test::awaitError<CancellationError>(std::move(task)));
    expectUntouched(folder);
}

TEST_P(FailingTools, AreGone)
{
    const FFmpegStandIn tools("exit 0");
    ASSERT_TRUE(QFile::remove(tools.path(u"bin/ffmpeg"_s)));
    const SongFolder folder(tools.location());
    const EditableAudioFile file = prepare(folder);
    EXPECT_EQ(test::awaitError<FFmpegNotFoundError>(folder.service().write(file, test::newTitle(), true, {})),
              FFmpegNotFoundError(u"ffmpeg"_s));
    expectUntouched(folder);
}

TEST_P(FailingTools, TouchTheSongMeanwhile)
{
    const FFmpegStandIn tools(R"("$ffmpeg" "$@"; echo more >> "$6")");
    const SongFolder folder(tools.location());
    const EditableAudioFile file = prepare(folder);
    EXPECT_EQ(test::awaitError<AudioFileTagError>(folder.service().write(file, test::newTitle(), true, {})),
              AudioFileTagError::fileChangedOnDisk(file.url));
    EXPECT_EQ(test::namesIn(folder.path()), QStringList{name()});
    EXPECT_TRUE(test::readFile(folder.path(name())).endsWith("more\n"));
}

TEST_P(FailingTools, PutAnotherSongInItsPlaceMeanwhile)
{
    const FFmpegStandIn tools(R"("$ffmpeg" "$@"; cp -p "$6" "$here/other"; mv "$here/other" "$6")");
    const SongFolder folder(tools.location());
    const EditableAudioFile file = prepare(folder);
    EXPECT_EQ(test::awaitError<AudioFileTagError>(folder.service().write(file, test::newTitle(), true, {})),
              AudioFileTagError::fileChangedOnDisk(file.url));
    expectUntouched(folder);
}

TEST_P(FailingTools, PutAFolderInTheSongsPlaceMeanwhile)
{
    const FFmpegStandIn tools(R"("$ffmpeg" "$@"; rm "$6"; mkdir "$6")");
    const SongFolder folder(tools.location());
    const EditableAudioFile file = prepare(folder);
    EXPECT_EQ(test::awaitError<AudioFileTagError>(folder.service().write(file, test::newTitle(), true, {})),
              AudioFileTagError::fileChangedOnDisk(file.url));
    EXPECT_EQ(test::namesIn(folder.path()), QStringList{name()});
}

TEST_P(FailingTools, DeleteTheSongMeanwhile)
{
    const FFmpegStandIn tools(R"("$ffmpeg" "$@"; mv "$6" "$here/gone")");
    const SongFolder folder(tools.location());
    const EditableAudioFile file = prepare(folder);
    EXPECT_EQ(test::awaitError<AudioFileTagError>(folder.service().write(file, test::newTitle(), true, {})),
              AudioFileTagError::fileMissing(file.url));
    EXPECT_EQ(test::namesIn(folder.path()), QStringList());
}

INSTANTIATE_TEST_SUITE_P(Kinds, FailingTools, testing::Values("flac", "mp3", "m4a"),
                         [](const auto &test) { return std::string(test.param); });

} // namespace tonearm
