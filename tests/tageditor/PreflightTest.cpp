// SPDX-License-Identifier: GPL-3.0-or-later
// The look at what a save would lose, on a copy of one second.
#include "helpers/Await.h"
#include "helpers/Contents.h"
#include "helpers/FFmpegStandIn.h"
#include "helpers/Printing.h"
#include "helpers/SongFolder.h"
#include "tageditor/Writes.h"

#include <gtest/gtest.h>

#include <QFileInfo>

namespace tonearm {

using namespace Qt::StringLiterals;
using test::FFmpegStandIn;
using test::SongFolder;

namespace {

// What ffmpeg was given, a word in a line.
QStringList recordedArguments(const FFmpegStandIn &tools)
{
    return QString::fromUtf8(test::readFile(tools.path(u"arguments"_s))).chopped(1).split(u'\n');
}

constexpr auto recording = R"(
printf '%s\n' "$@" > "$here/arguments"
"$ffmpeg" "$@" && "$ffmpeg" -v error -i "$output" -f wav -c:a pcm_s16le "$here/sound.wav")";

} // namespace

TEST(Preflight, ReturnsAtOnceForAPlanThatChangesNothing)
{
    const test::StandInTools noTools;
    const SongFolder folder(noTools.location());
    const EditableAudioFile file{
        .url = folder.url(u"gone.flac"_s), .tags = {}, .unreadableReason = {}, .modificationDate = {}};
    const TagWrite write =
        folder.service().tagWrite(file, test::editing(file.url, {{EditableTagField::title, u" "_s}}));
    EXPECT_EQ(test::await(folder.service().preflight(file, write, {})), QStringList());
}

TEST(Preflight, CopiesOneSecond)
{
    const FFmpegStandIn tools(recording);
    const SongFolder folder(tools.location());
    folder.makeSong(u"My Song.mp3"_s);
    EXPECT_EQ(test::await(folder.service().preflight(folder.load(u"My Song.mp3"_s), test::newTitle(), {})),
              QStringList());

    QStringList arguments = recordedArguments(tools);
    const QFileInfo output(arguments.takeLast());
    EXPECT_EQ(arguments,
              (QStringList{u"-hide_banner"_s, u"-v"_s, u"error"_s, u"-y"_s, u"-i"_s,
                           folder.path(u"My Song.mp3"_s), u"-map"_s, u"0"_s, u"-c"_s, u"copy"_s, u"-t"_s,
                           u"1"_s, u"-id3v2_version"_s, u"3"_s, u"-metadata"_s, u"title=New Title"_s}));
    EXPECT_TRUE(output.path().endsWith(u"/Tonearm/Preflight"_s));
    EXPECT_EQ(output.fileName().size(), 36 + 4);
    EXPECT_EQ(output.suffix(), u"mp3"_s);
    EXPECT_TRUE(folder.temporaryFiles().isEmpty());

    // A second, give or take a packet, of two bytes a sample.
    constexpr qint64 secondBytes = 44100 * 2;
    const qint64 copied = QFileInfo(tools.path(u"sound.wav"_s)).size();
    EXPECT_GT(copied, secondBytes * 9 / 10);
    EXPECT_LT(copied, secondBytes * 12 / 10);
}

TEST(Preflight, LeavesTheFileAlone)
{
    const SongFolder folder;
    folder.makeSong(u"a.flac"_s);
    const QByteArray contents = test::readFile(folder.path(u"a.flac"_s));
    const EditableAudioFile file = folder.load(u"a.flac"_s);
    EXPECT_EQ(test::await(folder.service().preflight(file, test::newTitle(), {})), QStringList());
    EXPECT_TRUE(test::readFile(folder.path(u"a.flac"_s)) == contents);
    EXPECT_EQ(folder.load(u"a.flac"_s), file);
    EXPECT_EQ(test::namesIn(folder.path()), QStringList{u"a.flac"_s});
}

TEST(Preflight, CantReportATagThatThePlanWrites)
{
    const FFmpegStandIn tools(R"("$ffmpeg" -v error -y -i "$6" -map 0 -c copy -map_metadata -1 "$output")");
    const SongFolder folder(tools.location());
    folder.makeSong(u"a.flac"_s, {u"title=Song"_s, u"artist=Anna"_s, u"BARCODE=1"_s});
    EXPECT_EQ(test::await(folder.service().preflight(folder.load(u"a.flac"_s), test::newTitle(), {})),
              (QStringList{u"artist"_s, u"barcode"_s}));
}

TEST(Preflight, PassesOnThatTheFileCantBeRead)
{
    const SongFolder folder;
    test::writeFile(folder.path(u"a.mp3"_s), "no song");
    const EditableAudioFile file{
        .url = folder.url(u"a.mp3"_s), .tags = {}, .unreadableReason = {}, .modificationDate = {}};
    EXPECT_TRUE(test::awaitError<ProcessRunnerError>(folder.service().preflight(file, test::newTitle(), {})));
    EXPECT_TRUE(folder.temporaryFiles().isEmpty());
}

TEST(Preflight, PassesOnThatThePictureCantBeRead)
{
    const SongFolder folder;
    folder.makeSong(u"a.flac"_s);
    const TagWrite write = test::newPicture(folder.path(u"gone.jpg"_s));
    EXPECT_TRUE(test::awaitError<ProcessRunnerError>(
        folder.service().preflight(folder.load(u"a.flac"_s), write, {})));
    EXPECT_TRUE(folder.temporaryFiles().isEmpty());
}

TEST(Preflight, PassesOnThatTheFolderCantBeMade)
{
    const SongFolder folder;
    folder.makeSong(u"a.flac"_s);
    test::writeFile(folder.path(u"file"_s), {});
    const AudioFileTagService service(test::shippedTools(), folder.path(u"file"_s));
    const auto error = test::awaitError<std::system_error>(
        service.preflight(folder.load(u"a.flac"_s), test::newTitle(), {}));
    ASSERT_TRUE(error);
    EXPECT_EQ(error->code(), std::errc::not_a_directory);
}

} // namespace tonearm
