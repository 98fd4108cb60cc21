// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/WavFile.h"

#include "helpers/Await.h"
#include "helpers/Contents.h"
#include "helpers/Media.h"
#include "helpers/Printing.h"
#include "platform/WavBytes.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>

#include <system_error>

namespace tonearm {

using namespace Qt::StringLiterals;
using test::WavRecipe;

namespace {

class WavFileTest : public testing::Test
{
protected:
    WavFile opened(const QByteArray &bytes) const
    {
        test::writeFile(path(), bytes);
        return WavFile(path());
    }

    bool isRefused(const QByteArray &bytes) const
    {
        return test::errorOf<WavFileError>([&] { return opened(bytes); }) == WavFileError(u"sound.wav"_s);
    }

    QString path() const { return m_folder.filePath(u"sound.wav"_s); }

    QTemporaryDir m_folder;
};

constexpr qint64 plenty = 1 << 20;

} // namespace

TEST_F(WavFileTest, TellsFormatAndSamples)
{
    WavFile file = opened(test::wavBytes("abcdefgh"));
    EXPECT_EQ(file.channels(), 2);
    EXPECT_EQ(file.sampleRate(), 44100U);
    EXPECT_EQ(file.bytesPerFrame(), 4U);
    EXPECT_EQ(file.read(plenty), "abcdefgh");
    EXPECT_TRUE(file.isAtEnd());
}

TEST_F(WavFileTest, GivesWholeFramesPieceByPiece)
{
    WavFile file = opened(test::wavBytes("abcdefghijkl"));
    EXPECT_EQ(file.read(4), "abcd");
    EXPECT_EQ(file.read(7), "efgh");
    EXPECT_FALSE(file.isAtEnd());
    EXPECT_EQ(file.read(plenty), "ijkl");
    EXPECT_EQ(file.read(plenty), QByteArray());
}

TEST_F(WavFileTest, ReadsWhatFfmpegWrites)
{
    const QString source = m_folder.filePath(u"source.flac"_s);
    test::makeMedia(source, {.duration = 1});
    test::outputOf(u"ffmpeg"_s, {u"-v"_s, u"error"_s, u"-i"_s, source, u"-c:a"_s, u"pcm_s16le"_s, u"-ar"_s,
                                 u"44100"_s, u"-ac"_s, u"2"_s, path()});
    const QByteArray samples =
        test::outputOf(u"ffmpeg"_s, {u"-v"_s, u"error"_s, u"-i"_s, path(), u"-f"_s, u"s16le"_s, u"pipe:1"_s});
    WavFile file(path());
    EXPECT_EQ(samples.size(), 44100 * 4);
    EXPECT_EQ(file.read(plenty), samples);
}

TEST_F(WavFileTest, PassesOverOtherChunks)
{
    const QByteArray chunks = test::wavChunk("LIST", "odd") + test::wavChunk("fact", "1234");
    EXPECT_EQ(opened(test::wavBytes("abcd", {.chunks = chunks})).read(plenty), "abcd");
}

TEST_F(WavFileTest, TakesOtherRatesAndChannels)
{
    const WavFile file = opened(test::wavBytes("abcd", {.channels = 1, .sampleRate = 8000}));
    EXPECT_EQ(file.channels(), 1);
    EXPECT_EQ(file.sampleRate(), 8000U);
    EXPECT_EQ(file.bytesPerFrame(), 2U);
}

TEST_F(WavFileTest, MayBeEmpty)
{
    WavFile file = opened(test::wavBytes({}));
    EXPECT_TRUE(file.isAtEnd());
    EXPECT_EQ(file.read(plenty), QByteArray());
}

TEST_F(WavFileTest, GivesWhatThereIsOfAFileThatIsCutShort)
{
    EXPECT_EQ(opened(test::wavBytes("abcdef", {.dataBytes = 4000})).read(plenty), "abcd");
    EXPECT_EQ(opened(test::wavBytes("abcd", {.dataBytes = 0xFFFFFFFF})).read(plenty), "abcd");
}

TEST_F(WavFileTest, EndsWhereAFileIsCutShortWhileItIsRead)
{
    WavFile file = opened(test::wavBytes("abcdefgh"));
    EXPECT_EQ(file.read(4), "abcd");
    test::writeFile(path(), {});
    EXPECT_EQ(file.read(plenty), QByteArray());
    EXPECT_TRUE(file.isAtEnd());
}

TEST_F(WavFileTest, RefusesWhatIsNoWavFile)
{
    EXPECT_TRUE(isRefused({}));
    EXPECT_TRUE(isRefused("RIFF"));
    EXPECT_TRUE(isRefused("fLaC and then some more of that"));
    EXPECT_TRUE(isRefused(test::wavBytes("abcd").first(30)));
    EXPECT_TRUE(isRefused(test::wavChunk("RIFF", "WAVE" + test::wavChunk("data", "abcd"))));
    EXPECT_TRUE(isRefused(test::wavChunk("RIFF", "WAVE" + test::wavChunk("LIST", "abcd"))));
}

TEST_F(WavFileTest, RefusesSamplesOfAnotherKind)
{
    EXPECT_TRUE(isRefused(test::wavBytes("abcd", {.bits = 24})));
    EXPECT_TRUE(isRefused(test::wavBytes("abcd", {.format = 3})));
    EXPECT_TRUE(isRefused(test::wavBytes("abcd", {.channels = 0})));
    EXPECT_TRUE(isRefused(test::wavBytes("abcd", {.channels = 33})));
    EXPECT_TRUE(isRefused(test::wavBytes("abcd", {.sampleRate = 0})));
    EXPECT_TRUE(isRefused(test::wavBytes("abcd", {.sampleRate = 400000})));
}

TEST_F(WavFileTest, SaysThatItCantBePlayed)
{
    EXPECT_EQ(WavFileError(u"a.wav"_s).description(), u"\"a.wav\" isn't a sound file that can be played."_s);
}

TEST_F(WavFileTest, FailsIfItCantBeOpened)
{
    const auto missing = test::errorOf<std::system_error>([&] { return WavFile(path()); });
    ASSERT_TRUE(missing);
    EXPECT_EQ(missing->code(), std::errc::no_such_file_or_directory);
    const auto folder = test::errorOf<std::system_error>([&] { return WavFile(m_folder.path()); });
    ASSERT_TRUE(folder);
    EXPECT_EQ(folder->code(), std::errc::is_a_directory);
}

} // namespace tonearm
