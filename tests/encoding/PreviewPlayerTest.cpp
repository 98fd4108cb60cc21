// SPDX-License-Identifier: GPL-3.0-or-later
#include "encoding/AudioPreviewPlayer.h"

#include "helpers/Await.h"
#include "helpers/Printing.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QThread>

#include <stdexcept>
#include <thread>
#include <vector>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

// Sounds that nobody hears; the test says when they end.
class SilentSounds : public PreviewSounds
{
public:
    std::unique_ptr<PreviewSound> open(const QUrl &url, EndCallback onEnd) override
    {
        if (url == unplayable)
            throw std::runtime_error("no sound");
        opened.append(url);
        ends.push_back(std::move(onEnd));
        return std::make_unique<SilentSound>(*this, url);
    }

    const QUrl unplayable{u"file:///text.wav"_s};
    // Can be opened, but not played.
    const QUrl unstartable{u"file:///stuck.wav"_s};
    QList<QUrl> opened;
    // What plays now.
    QList<QUrl> playing;
    // The callbacks of what was opened, in order.
    std::vector<EndCallback> ends;

private:
    class SilentSound : public PreviewSound
    {
    public:
        SilentSound(SilentSounds &sounds, QUrl url)
            : m_sounds(sounds)
            , m_url(std::move(url))
        {
        }

        ~SilentSound() override { m_sounds.playing.removeOne(m_url); }

        SilentSound(const SilentSound &) = delete;
        SilentSound &operator=(const SilentSound &) = delete;

        void start() override
        {
            if (m_url == m_sounds.unstartable)
                throw std::runtime_error("no thread");
            m_sounds.playing.append(m_url);
        }

    private:
        SilentSounds &m_sounds;
        QUrl m_url;
    };
};

class PreviewPlayer : public testing::Test
{
protected:
    // Counts the calls of a callback.
    static AudioPreviewPlayer::FinishCallback counting(int &calls)
    {
        return [&calls] { ++calls; };
    }

    // What the callbacks have sent to this thread happens.
    static void settle() { QCoreApplication::sendPostedEvents(); }

    // NOLINTBEGIN(cppcoreguidelines-non-private-member-variables-in-classes): a fixture
    const QUrl one{u"file:///one.wav"_s};
    const QUrl two{u"file:///two.wav"_s};
    SilentSounds sounds;
    AudioPreviewPlayer player{sounds};
    int finished = 0;
    int finishedLater = 0;
    // NOLINTEND(cppcoreguidelines-non-private-member-variables-in-classes)
};

} // namespace

TEST_F(PreviewPlayer, PlaysAFile)
{
    player.play(one, counting(finished));
    EXPECT_EQ(sounds.playing, QList{one});
    settle();
    EXPECT_EQ(finished, 0);
}

TEST_F(PreviewPlayer, KeepsNothingOfASoundThatDoesntStart)
{
    EXPECT_THROW(player.play(sounds.unstartable, counting(finished)), std::runtime_error);
    sounds.ends.front()();
    settle();
    EXPECT_EQ(finished, 0);
    player.play(one, counting(finishedLater));
    EXPECT_EQ(sounds.playing, QList{one});
}

TEST_F(PreviewPlayer, TellsOfTheEndOnce)
{
    player.play(one, counting(finished));
    sounds.ends.front()();
    EXPECT_EQ(finished, 0) << "told inside the sound's own callback";
    settle();
    EXPECT_EQ(finished, 1);
    EXPECT_EQ(sounds.playing, QList<QUrl>());
    sounds.ends.front()();
    player.stop();
    settle();
    EXPECT_EQ(finished, 1);
}

TEST_F(PreviewPlayer, CountsAnEndThatComesTwiceAsOne)
{
    player.play(one, counting(finished));
    sounds.ends.front()();
    sounds.ends.front()();
    settle();
    EXPECT_EQ(finished, 1);
}

TEST_F(PreviewPlayer, TellsOfAnEndOnAnotherThreadOnItsOwn)
{
    QThread *thread = nullptr;
    player.play(one, [&] { thread = QThread::currentThread(); });
    std::thread(sounds.ends.front()).join();
    EXPECT_TRUE(test::eventually([&] { return thread != nullptr; }));
    EXPECT_EQ(thread, QThread::currentThread());
}

TEST_F(PreviewPlayer, SaysNothingWhenStopped)
{
    player.play(one, counting(finished));
    player.stop();
    EXPECT_EQ(sounds.playing, QList<QUrl>());
    sounds.ends.front()();
    settle();
    EXPECT_EQ(finished, 0);
}

TEST_F(PreviewPlayer, SaysNothingWhenStoppedWithTheEndOnItsWay)
{
    player.play(one, counting(finished));
    sounds.ends.front()();
    player.stop();
    settle();
    EXPECT_EQ(finished, 0);
}

TEST_F(PreviewPlayer, StopsWithNothingToStop)
{
    player.stop();
    player.stop();
    EXPECT_EQ(sounds.opened, QList<QUrl>());
}

TEST_F(PreviewPlayer, PlaysOneFileAtATime)
{
    player.play(one, counting(finished));
    player.play(two, counting(finishedLater));
    EXPECT_EQ(sounds.playing, QList{two});
    sounds.ends.back()();
    settle();
    EXPECT_EQ(finished, 0);
    EXPECT_EQ(finishedLater, 1);
}

TEST_F(PreviewPlayer, TakesTheLateEndOfAReplacedFileForNothing)
{
    player.play(one, counting(finished));
    sounds.ends.front()();
    player.play(two, counting(finishedLater));
    settle();
    EXPECT_EQ(sounds.playing, QList{two});
    EXPECT_EQ(finished, 0);
    EXPECT_EQ(finishedLater, 0);
}

TEST_F(PreviewPlayer, PassesOnThatAFileCantBePlayedAndFallsSilent)
{
    player.play(one, counting(finished));
    EXPECT_THROW(player.play(sounds.unplayable, counting(finishedLater)), std::runtime_error);
    EXPECT_EQ(sounds.playing, QList<QUrl>());
    settle();
    EXPECT_EQ(finished, 0);
    player.play(two, nullptr);
    EXPECT_EQ(sounds.playing, QList{two});
}

TEST_F(PreviewPlayer, CanPlayTheNextFileFromTheEndOfTheLast)
{
    player.play(one, [&] { player.play(two, counting(finished)); });
    sounds.ends.front()();
    settle();
    EXPECT_EQ(sounds.playing, QList{two});
    sounds.ends.back()();
    settle();
    EXPECT_EQ(finished, 1);
}

TEST_F(PreviewPlayer, NeedsNobodyToTell)
{
    player.play(one, nullptr);
    sounds.ends.front()();
    settle();
    EXPECT_EQ(sounds.playing, QList<QUrl>());
}

TEST_F(PreviewPlayer, ForgetsAnEndThatComesAsItGoes)
{
    {
        AudioPreviewPlayer brief(sounds);
        brief.play(one, counting(finished));
        sounds.ends.front()();
    }
    settle();
    EXPECT_EQ(finished, 0);
    EXPECT_EQ(sounds.playing, QList<QUrl>());
}

} // namespace tonearm
