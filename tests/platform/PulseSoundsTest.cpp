// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/PulseSounds.h"

#include "encoding/AudioPreviewPlayer.h"
#include "helpers/Await.h"
#include "helpers/Contents.h"
#include "helpers/Printing.h"
#include "helpers/SoundServer.h"
#include "platform/PulseLibrary.h"
#include "platform/WavBytes.h"
#include "platform/WavFile.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>

#include <dlfcn.h>

#include <atomic>
#include <cstdlib>
#include <optional>
#include <system_error>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

bool isLibraryLoaded()
{
    return ::dlopen("libpulse.so.0", RTLD_NOW | RTLD_NOLOAD) != nullptr;
}

// A folder for sounds, in which libpulse keeps its own files too.
class PulseSoundsTest : public testing::Test
{
protected:
    PulseSoundsTest() { qputenv("PULSE_COOKIE", m_folder.filePath(u"cookie"_s).toUtf8()); }

    ~PulseSoundsTest() override { qunsetenv("PULSE_COOKIE"); }

    QUrl sound(const QByteArray &bytes, const QString &name = u"sound.wav"_s) const
    {
        test::writeFile(m_folder.filePath(name), bytes);
        return QUrl::fromLocalFile(m_folder.filePath(name));
    }

    std::unique_ptr<PreviewSound> opened(PulseSounds &sounds, const QByteArray &samples)
    {
        return sounds.open(sound(test::wavBytes(samples)), [this] { ++m_ends; });
    }

    bool endsSoon() const
    {
        return test::eventually([this] { return m_ends > 0; });
    }

    // Nobody listens there.
    PulseSounds::Options nobody() const
    {
        return {.server = "unix:" + m_folder.filePath(u"nobody"_s).toUtf8()};
    }

    QTemporaryDir m_folder;
    std::atomic<int> m_ends = 0;
};

class PlayedSoundTest : public PulseSoundsTest
{
protected:
    void SetUp() override
    {
        SKIP_WITHOUT_SOUND();
        m_server.emplace();
        m_sounds.emplace(PulseSounds::Options{.server = m_server->address()});
    }

    bool hears(const QByteArray &samples) const
    {
        return test::eventually([&] { return m_server->recording().contains(samples); });
    }

    std::optional<test::SoundServer> m_server;
    std::optional<PulseSounds> m_sounds;
};

} // namespace

TEST(PulseSounds, LoadNothingBeforeTheFirstFile)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe"); // in a process of its own
    EXPECT_EXIT(
        {
            const PulseSounds sounds;
            std::exit(isLibraryLoaded() ? 1 : 0);
        },
        testing::ExitedWithCode(0), "");
}

TEST_F(PulseSoundsTest, LoadsTheLibraryForTheFirstFile)
{
    PulseSounds sounds;
    opened(sounds, "abcd");
    EXPECT_TRUE(isLibraryLoaded());
}

TEST_F(PulseSoundsTest, FailsAtOnceIfTheFileCantBeOpened)
{
    PulseSounds sounds;
    const QUrl missing = QUrl::fromLocalFile(m_folder.filePath(u"missing.wav"_s));
    const auto error = test::errorOf<std::system_error>([&] { return sounds.open(missing, [] {}); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->code(), std::errc::no_such_file_or_directory);
}

TEST_F(PulseSoundsTest, FailsAtOnceIfTheFileIsNoSound)
{
    PulseSounds sounds;
    const QUrl text = sound("no sound", u"text.wav"_s);
    EXPECT_EQ(test::errorOf<WavFileError>([&] { return sounds.open(text, [] {}); }),
              WavFileError(u"text.wav"_s));
}

TEST_F(PulseSoundsTest, FailsAtOnceWithoutTheLibrary)
{
    PulseSounds sounds({.library = u"libnone.so.0"_s});
    const auto error = test::errorOf<PulseLibraryError>([&] { return opened(sounds, "abcd"); });
    ASSERT_TRUE(error);
    EXPECT_TRUE(error->reason.startsWith(u"libnone.so.0: "_s)) << error->reason.toStdString();
    EXPECT_EQ(error->description(), u"The sound system can't be used. "_s + error->reason);
}

TEST_F(PulseSoundsTest, FailsAtOnceWithALibraryOfAnotherKind)
{
    PulseSounds sounds({.library = u"libc.so.6"_s});
    EXPECT_TRUE(test::errorOf<PulseLibraryError>([&] { return opened(sounds, "abcd"); }));
}

TEST_F(PulseSoundsTest, EndsAtOnceWithoutAServer)
{
    PulseSounds sounds(nobody());
    const auto playing = opened(sounds, test::noise(20));
    playing->start();
    EXPECT_TRUE(endsSoon());
    EXPECT_EQ(m_ends, 1);
}

TEST_F(PulseSoundsTest, EndsAtOnceWithoutSamples)
{
    PulseSounds sounds(nobody());
    const auto playing = opened(sounds, {});
    playing->start();
    EXPECT_TRUE(endsSoon());
}

TEST_F(PulseSoundsTest, SaysNothingIfItIsNeverStarted)
{
    PulseSounds sounds(nobody());
    opened(sounds, test::noise(1)).reset();
    EXPECT_EQ(m_ends, 0);
}

TEST_F(PlayedSoundTest, PlaysEverySampleAndTellsTheEnd)
{
    const QByteArray samples = test::noise(0.7);
    const auto playing = opened(*m_sounds, samples);
    playing->start();
    EXPECT_TRUE(hears(samples));
    EXPECT_TRUE(endsSoon());
    EXPECT_EQ(m_ends, 1);
    EXPECT_FALSE(m_server->isInUse());
}

TEST_F(PlayedSoundTest, PlaysASoundThatIsShorterThanTheBuffer)
{
    const QByteArray samples = test::noise(0.05);
    const auto playing = opened(*m_sounds, samples);
    playing->start();
    EXPECT_TRUE(hears(samples));
    EXPECT_TRUE(endsSoon());
}

TEST_F(PlayedSoundTest, FallsSilentWithoutTellingAnEnd)
{
    const QByteArray samples = test::noise(20);
    auto playing = opened(*m_sounds, samples);
    playing->start();
    ASSERT_TRUE(hears(samples.first(40000)));
    playing.reset();
    EXPECT_TRUE(test::eventually([this] { return !m_server->isInUse(); }));
    EXPECT_FALSE(m_server->recording().contains(samples.last(40000)));
    EXPECT_EQ(m_ends, 0);
}

TEST_F(PlayedSoundTest, EndsWithTheServer)
{
    const QByteArray samples = test::noise(20);
    const auto playing = opened(*m_sounds, samples);
    playing->start();
    ASSERT_TRUE(hears(samples.first(40000)));
    m_server->kill();
    EXPECT_TRUE(endsSoon());
    EXPECT_EQ(m_ends, 1);
}

TEST_F(PlayedSoundTest, EndsWhereTheFileIsCutShort)
{
    const QByteArray samples = test::noise(0.3);
    const auto playing =
        m_sounds->open(sound(test::wavBytes(samples, {.dataBytes = 20 * 44100 * 4})), [this] { ++m_ends; });
    playing->start();
    EXPECT_TRUE(hears(samples));
    EXPECT_TRUE(endsSoon());
}

TEST_F(PlayedSoundTest, PlaysOneAfterTheOtherForThePlayer)
{
    const QByteArray first = test::noise(20);
    const QByteArray second = test::noise(0.5);
    AudioPreviewPlayer player(*m_sounds);
    int firstEnds = 0;
    player.play(sound(test::wavBytes(first), u"first.wav"_s), [&] { ++firstEnds; });
    ASSERT_TRUE(hears(first.first(40000)));
    player.play(sound(test::wavBytes(second)), [this] { ++m_ends; });
    EXPECT_TRUE(endsSoon());
    EXPECT_TRUE(hears(second));
    EXPECT_EQ(m_ends, 1);
    EXPECT_EQ(firstEnds, 0);
}

} // namespace tonearm
