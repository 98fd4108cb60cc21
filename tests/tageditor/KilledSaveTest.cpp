// SPDX-License-Identifier: GPL-3.0-or-later
// A program that saves is killed at random moments: the song is always one of its two versions, to the byte.
#include "helpers/Contents.h"
#include "helpers/Mutagen.h"
#include "helpers/Printing.h"
#include "helpers/SongFolder.h"
#include "tageditor/Writes.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QDir>
#include <QProcess>

#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <random>
#include <thread>

namespace tonearm {

using namespace Qt::StringLiterals;
using test::SongFolder;

namespace {

constexpr int killsForEachKind = 100;
// A save of these songs takes some 60 milliseconds.
constexpr int longestLifeMicroseconds = 120000;
constexpr int patienceMilliseconds = 30000;

enum class Victims { program, programAndItsTools };

// Until the last of what the killed program had started has ended; see SetUp().
void waitForOrphans()
{
    while (::waitpid(-1, nullptr, 0) > 0) {
    }
}

void killAWhileAfterTheBeginning(const QStringList &arguments, std::chrono::microseconds life,
                                 Victims victims)
{
    QProcess saver;
    saver.setChildProcessModifier([] { ::setsid(); });
    saver.start(QCoreApplication::applicationDirPath() + u"/tageditor_saver"_s, arguments);
    ASSERT_TRUE(saver.waitForReadyRead(patienceMilliseconds));
    std::this_thread::sleep_for(life);
    const auto process = static_cast<pid_t>(saver.processId());
    ASSERT_GT(process, 1);
    // The program is the leader of a group that its tools are in.
    ASSERT_EQ(::kill(victims == Victims::program ? process : -process, SIGKILL), 0);
    ASSERT_TRUE(saver.waitForFinished(patienceMilliseconds));
    EXPECT_EQ(saver.exitStatus(), QProcess::CrashExit) << saver.readAllStandardError().toStdString();
    waitForOrphans();
}

class KilledSave : public testing::TestWithParam<const char *>
{
protected:
    // What a killed program has started becomes a child of this one, so that it can be waited for.
    void SetUp() override { ASSERT_EQ(::prctl(PR_SET_CHILD_SUBREAPER, 1), 0); }

    void TearDown() override { ASSERT_EQ(::prctl(PR_SET_CHILD_SUBREAPER, 0), 0); }

    static QString name() { return u"song."_s + QString::fromLatin1(GetParam()); }

    // The song with a title, as every save leaves it.
    QByteArray version(const QString &title) const
    {
        m_folder.write(m_folder.load(name()), test::newTitle(title));
        EXPECT_EQ(test::mutagenTags(m_folder.path(name())).value(u"title"_s), QStringList{title});
        return test::readFile(m_folder.path(name()));
    }

    // Deletes what a killed save has left beside the song; returns how many files that were.
    qsizetype tidyUp() const
    {
        QStringList others = test::namesIn(m_folder.path());
        EXPECT_TRUE(others.removeOne(name()));
        for (const QString &other : others)
            EXPECT_TRUE(other.startsWith(u'.') && QFile::remove(m_folder.path(other))) << other.toStdString();
        return others.size();
    }

    SongFolder m_folder;
};

} // namespace

TEST_P(KilledSave, LeavesTheSongWhole)
{
    m_folder.makeSong(name(), {u"artist=Anna"_s});
    version(u"Title A"_s);
    const QByteArray versionB = version(u"Title B"_s);
    const QByteArray versionA = version(u"Title A"_s);
    const QByteArray sound = test::audioPacketDigest(m_folder.path(name()));

    std::mt19937 random(std::random_device{}());
    std::uniform_int_distribution<int> life(0, longestLifeMicroseconds);
    int foundB = 0;
    qsizetype halfDone = 0;
    for (int kill = 0; kill < killsForEachKind; ++kill) {
        const QStringList arguments = {m_folder.path(name()), m_folder.path()};
        ASSERT_NO_FATAL_FAILURE(
            killAWhileAfterTheBeginning(arguments, std::chrono::microseconds(life(random)),
                                        kill % 2 == 0 ? Victims::program : Victims::programAndItsTools));
        const QByteArray found = test::readFile(m_folder.path(name()));
        ASSERT_TRUE(found == versionA || found == versionB) << "after kill " << kill;
        foundB += found == versionB ? 1 : 0;
        halfDone += tidyUp();
    }
    EXPECT_EQ(test::audioPacketDigest(m_folder.path(name())), sound);
    // Or the kills came too early or too late to mean anything.
    EXPECT_GT(halfDone, 0);
    EXPECT_GT(foundB, 0);
    EXPECT_LT(foundB, killsForEachKind);
}

INSTANTIATE_TEST_SUITE_P(Kinds, KilledSave, testing::Values("flac", "mp3", "m4a"),
                         [](const auto &test) { return std::string(test.param); });

} // namespace tonearm
