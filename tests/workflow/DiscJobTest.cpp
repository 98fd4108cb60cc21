// SPDX-License-Identifier: GPL-3.0-or-later
// A job on a disc: each track read, verified and encoded in its turn.
#include "disc/DiscError.h"
#include "helpers/Await.h"
#include "helpers/Contents.h"
#include "helpers/Media.h"
#include "helpers/ModelFixture.h"
#include "helpers/Printing.h"
#include "helpers/ScriptedTools.h"
#include "workflow/DiscJobProgress.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QPropertyNotifier>

#include <functional>
#include <memory>
#include <utility>

namespace tonearm {

using namespace Qt::StringLiterals;
using namespace test;
using Kind = WorkflowState::Kind;

namespace {

class DiscJob : public testing::Test
{
protected:
    explicit DiscJob(const ModelFixture::Options &options = {})
        : m_fixture(options)
    {
    }

    void SetUp() override
    {
        m_fixture.settings().setUseSecureCDRipping(false);
        m_fixture.settings().setVerifyRipsByRereading(false);
        ASSERT_TRUE(QDir().mkpath(m_fixture.path(u"disc"_s)));
        ASSERT_TRUE(QDir().mkpath(m_fixture.outputPath()));
        m_model.outputFolderURL = QUrl::fromLocalFile(m_fixture.outputPath());
        ASSERT_NO_FATAL_FAILURE(m_fixture.findTools());
        m_disc.volumeURL = m_fixture.url(u"disc"_s);
        m_disc.volumeName = u"The Disc"_s;
        m_disc.discID = u"the-id"_s;
        m_disc.rawDevice = m_fixture.url(u"disc.cue"_s);
        for (const QString &title : {u"Eins"_s, u"Zwei"_s})
            addTrack(title);
    }

    void addTrack(const QString &title)
    {
        DiscTrack track;
        track.number = m_disc.tracks.size() + 1;
        track.title = title;
        track.frameCount = 75;
        track.audioFileURL = m_fixture.url(u"disc/%1 %2.aiff"_s.arg(QString::number(track.number), title));
        makeMedia(track.audioFileURL.toLocalFile(), {.audioCodec = codec::pcm16(), .duration = 1});
        m_disc.tracks.append(track);
    }

    void load()
    {
        m_fixture.discScan().discs = {m_disc};
        m_model.loadDisc(m_disc);
        ASSERT_TRUE(eventually([this] { return !m_model.isLoadingReleases.value(); }));
    }

    // Secure reading with a reader that gives copies of the disc's own files.
    void readSecurely()
    {
        m_fixture.settings().setUseSecureCDRipping(true);
        m_model.checkCDParanoia();
        ASSERT_TRUE(eventually([this] { return m_model.cdParanoiaInstallation.value().has_value(); }));
        m_fixture.secureReader().onRip = [this](const DiscTrack &track) { return copyOf(track); };
    }

    RippedTrack copyOf(const DiscTrack &track)
    {
        const QString copy = m_fixture.path(u"copy-%1.aiff"_s.arg(track.number));
        EXPECT_TRUE(QFile::copy(track.audioFileURL.toLocalFile(), copy));
        return {QUrl::fromLocalFile(copy), u"checksum"_s, RipVerification::secure};
    }

    QString log() { return QString::fromUtf8(readFile(m_model.lastLogURL.value()->toLocalFile())); }

    // Calls back, once, when a message with that beginning is shown.
    QPropertyNotifier atMessage(const QString &beginning, std::function<void()> action)
    {
        const auto waiting = std::make_shared<std::function<void()>>(std::move(action));
        return m_model.progressMessage.addNotifier([this, beginning, waiting] {
            if (*waiting && m_model.progressMessage.value().startsWith(beginning))
                std::exchange(*waiting, nullptr)();
        });
    }

    void pullOut()
    {
        m_fixture.discScan().discs = {};
        m_model.refreshDiscs();
    }

    void expectCancelledByPull()
    {
        EXPECT_EQ(m_model.currentState.value(), WorkflowState(Kind::idle));
        EXPECT_EQ(m_model.progressMessage.value(), u"Ripping cancelled."_s);
        EXPECT_EQ(m_model.encodingProgress.value(), 0);
        ASSERT_TRUE(m_model.alert.value());
        EXPECT_EQ(m_model.alert.value()->title, u"Disc Ejected"_s);
        EXPECT_FALSE(m_model.loadedDisc.value());
        EXPECT_TRUE(m_model.chapters.value().isEmpty());
        EXPECT_FALSE(QFile::exists(m_fixture.outputPath(u"01-Eins.flac"_s)));
        EXPECT_FALSE(log().contains(u"Eins"_s)) << log().toStdString();
    }

    QStringList temporaryRips() const
    {
        return QDir(m_fixture.path(u"Tonearm/Rips"_s)).entryList(QDir::Files);
    }

    ModelFixture m_fixture;
    AppModel &m_model = m_fixture.model();
    DiscInfo m_disc;
};

struct EndlessEncoder
{
    EndlessEncoder() { tools.setEncoding("exec sleep 600"); }

    ScriptedTools tools;
};

class DiscJobWithoutEnd : private EndlessEncoder, public DiscJob
{
protected:
    DiscJobWithoutEnd()
        : DiscJob({.tools = tools.location()})
    {
    }
};

} // namespace

TEST_F(DiscJob, TurnsEachTrackIntoAFile)
{
    load();
    QStringList messages;
    const auto onMessage =
        m_model.progressMessage.onValueChanged([&] { messages.append(m_model.progressMessage.value()); });
    m_fixture.runJob();
    EXPECT_EQ(m_model.currentState.value(), WorkflowState(Kind::complete))
        << m_model.statusText().toStdString();
    EXPECT_EQ(messages, (QStringList{u"Starting…"_s, u"Reading track 1 of 2: Eins"_s,
                                     u"Encoding 1 of 2: Eins"_s, u"Reading track 2 of 2: Zwei"_s,
                                     u"Encoding 2 of 2: Zwei"_s, u"Encoded 2 tracks to out."_s}));
    ASSERT_EQ(m_model.encodedFiles.value().size(), 2);
    for (qsizetype index = 0; index < 2; ++index)
        EXPECT_EQ(decodedAudio(m_model.encodedFiles.value()[index].toLocalFile()),
                  decodedAudio(m_disc.tracks[index].audioFileURL.toLocalFile()));
    EXPECT_TRUE(m_model.trackVerifications.value().isEmpty());
    EXPECT_EQ(m_model.encodingProgress.value(), 1);
    EXPECT_TRUE(log().contains(u"the-id"_s));
    EXPECT_TRUE(log().contains(u"CDDA filesystem"_s));
    EXPECT_TRUE(temporaryRips().isEmpty());
}

TEST_F(DiscJob, ReadsEveryTrackTwiceIfTheUserWantsThat)
{
    m_fixture.settings().setVerifyRipsByRereading(true);
    load();
    m_fixture.runJob();
    EXPECT_EQ(
        m_model.trackVerifications.value(),
        (QMap<qint64, RipVerification>{{0, RipVerification::verified}, {1, RipVerification::verified}}));
    EXPECT_TRUE(temporaryRips().isEmpty());
}

TEST_F(DiscJob, GoesOnAfterTwoReadingsThatDiffer)
{
    ASSERT_NO_FATAL_FAILURE(readSecurely());
    m_fixture.settings().setVerifyRipsByRereading(true);
    m_fixture.secureReader().onVerify = [](const DiscTrack &track) { return track.number != 1; };
    load();
    EXPECT_TRUE(m_model.usesSecureRipping());
    m_fixture.runJob();
    EXPECT_EQ(m_model.encodedFiles.value().size(), 2);
    EXPECT_EQ(
        m_model.trackVerifications.value(),
        (QMap<qint64, RipVerification>{{0, RipVerification::mismatched}, {1, RipVerification::verified}}));
    EXPECT_TRUE(log().contains(u"the secure reader"_s));
}

TEST_F(DiscJob, KeepsTheWordOfTheSecureReader)
{
    ASSERT_NO_FATAL_FAILURE(readSecurely());
    load();
    m_fixture.runJob();
    EXPECT_EQ(m_model.trackVerifications.value(),
              (QMap<qint64, RipVerification>{{0, RipVerification::secure}, {1, RipVerification::secure}}));
}

TEST_F(DiscJob, FallsBackToThePlainReaderForOneTrack)
{
    ASSERT_NO_FATAL_FAILURE(readSecurely());
    m_disc.tracks[1].precedesDataSession = true;
    m_fixture.secureReader().onRip = [](const DiscTrack &track) -> RippedTrack {
        throw DiscError::trackReadFailed(track.number, u"It hung."_s);
    };
    load();
    QStringList messages;
    const auto onMessage =
        m_model.progressMessage.onValueChanged([&] { messages.append(m_model.progressMessage.value()); });
    m_fixture.runJob();
    EXPECT_TRUE(messages.contains(u"Re-reading track 1 the ordinary way…"_s));
    ASSERT_EQ(m_model.encodedFiles.value().size(), 2) << m_model.statusText().toStdString();
    EXPECT_TRUE(m_model.trackVerifications.value().isEmpty());
    const QString text = log();
    EXPECT_TRUE(
        text.contains(u"Secure reading failed, so this track was read through the filesystem instead. "_s +
                      DiscError::trackReadFailed(1, u"It hung."_s).description()))
        << text.toStdString();
    EXPECT_TRUE(text.contains(u"Read through the filesystem instead of securely. "_s +
                              DiscError::trackReadFailed(2, u"It hung."_s).description()));
}

TEST_F(DiscJob, FailsWithTheOrdinaryReading)
{
    QFile::remove(m_disc.tracks[1].audioFileURL.toLocalFile());
    load();
    m_fixture.runJob();
    EXPECT_EQ(m_model.currentState.value(),
              WorkflowState::error(DiscError::trackUnreadable(2).description()));
    EXPECT_EQ(m_model.progressMessage.value(), u"Ripping failed."_s);
    EXPECT_EQ(m_model.alert.value()->title, u"Ripping Failed"_s);
    EXPECT_TRUE(m_model.encodedFiles.value().isEmpty());
    EXPECT_TRUE(QFile::exists(m_fixture.outputPath(u"01-Eins.flac"_s)));
}

TEST_F(DiscJob, HasNoSecondFallback)
{
    ASSERT_NO_FATAL_FAILURE(readSecurely());
    QFile::remove(m_disc.tracks[0].audioFileURL.toLocalFile());
    m_fixture.secureReader().onRip = [](const DiscTrack &track) -> RippedTrack {
        throw DiscError::trackReadFailed(track.number, u"It hung."_s);
    };
    load();
    m_fixture.runJob();
    EXPECT_EQ(m_model.statusText(), DiscError::trackUnreadable(1).description());
}

TEST_F(DiscJob, FailsForAChapterWithoutATrack)
{
    load();
    QList<ChapterInfo> chapters = m_model.chapters.value();
    chapters[0].id = 41;
    m_model.chapters = chapters;
    m_fixture.runJob();
    EXPECT_EQ(m_model.statusText(), u"Track 42 couldn't be read from the disc."_s);
}

TEST_F(DiscJob, TellsOfEachReadingAndEachVerification)
{
    m_fixture.settings().setVerifyRipsByRereading(true);
    load();
    QStringList messages;
    const auto onMessage =
        m_model.progressMessage.onValueChanged([&] { messages.append(m_model.progressMessage.value()); });
    m_fixture.runJob();
    EXPECT_EQ(messages, (QStringList{u"Starting…"_s, u"Reading track 1 of 2: Eins"_s,
                                     u"Verifying track 1 of 2: Eins"_s, u"Encoding 1 of 2: Eins"_s,
                                     u"Reading track 2 of 2: Zwei"_s, u"Verifying track 2 of 2: Zwei"_s,
                                     u"Encoding 2 of 2: Zwei"_s, u"Encoded 2 tracks to out."_s}));
}

TEST_F(DiscJob, IsCancelledWhenTheDiscIsPulledOutDuringAReading)
{
    ASSERT_NO_FATAL_FAILURE(readSecurely());
    m_fixture.secureReader().isEndlessRip = true;
    load();
    QStringList messages;
    const auto onMessage =
        m_model.progressMessage.onValueChanged([&] { messages.append(m_model.progressMessage.value()); });
    const auto onReading = atMessage(u"Reading track 1"_s, [this] { pullOut(); });
    m_fixture.runJob();
    ASSERT_NO_FATAL_FAILURE(expectCancelledByPull());
    EXPECT_TRUE(messages.contains(u"The disc was ejected."_s));
}

TEST_F(DiscJob, EndsWithoutAnAlertWhenTheUserCancelsIt)
{
    ASSERT_NO_FATAL_FAILURE(readSecurely());
    m_fixture.secureReader().isEndlessRip = true;
    load();
    const auto onReading = atMessage(u"Reading track 1"_s, [this] { m_model.cancelEncoding(); });
    m_fixture.runJob();
    EXPECT_EQ(m_model.currentState.value(), WorkflowState(Kind::idle));
    EXPECT_EQ(m_model.statusText(), u"Ripping cancelled."_s);
    EXPECT_FALSE(m_model.alert.value());
    EXPECT_TRUE(m_model.loadedDisc.value());
}

TEST_F(DiscJob, EmptiesTheVerificationsOfTheJobBefore)
{
    load();
    m_model.trackVerifications = QMap<qint64, RipVerification>{{77, RipVerification::mismatched}};
    m_fixture.runJob();
    EXPECT_FALSE(m_model.trackVerifications.value().contains(77));
}

TEST_F(DiscJob, IsCancelledWhenTheDiscIsPulledOutDuringAVerification)
{
    ASSERT_NO_FATAL_FAILURE(readSecurely());
    m_fixture.settings().setVerifyRipsByRereading(true);
    m_fixture.secureReader().isEndlessVerify = true;
    load();
    const auto onVerifying = atMessage(u"Verifying track 1"_s, [this] { pullOut(); });
    m_fixture.runJob();
    ASSERT_NO_FATAL_FAILURE(expectCancelledByPull());
    EXPECT_TRUE(m_model.trackVerifications.value().isEmpty());
}

TEST_F(DiscJobWithoutEnd, IsCancelledWhenTheDiscIsPulledOutDuringAnEncoding)
{
    load();
    const auto onEncoding = atMessage(u"Encoding 1"_s, [this] { pullOut(); });
    m_fixture.runJob();
    ASSERT_NO_FATAL_FAILURE(expectCancelledByPull());
    // What has been read stays for the system to clear.
    EXPECT_EQ(temporaryRips().size(), 1);
}

TEST_F(DiscJob, FailsAtTheNextReadingWhenItsDiscIsEjected)
{
    load();
    m_fixture.ejector().onEject = [this] { QFile::remove(m_disc.tracks[1].audioFileURL.toLocalFile()); };
    const auto onEncoding = atMessage(u"Encoding 1"_s, [this] {
        EXPECT_TRUE(m_model.canEject());
        m_model.ejectCurrentDisc();
        EXPECT_FALSE(m_model.loadedDisc.value());
    });
    m_fixture.runJob();
    EXPECT_EQ(m_fixture.ejector().ejected, QList{m_disc.volumeURL});
    EXPECT_EQ(m_model.currentState.value(),
              WorkflowState::error(DiscError::trackUnreadable(2).description()));
    EXPECT_EQ(m_model.progressMessage.value(), u"Ripping failed."_s);
    EXPECT_EQ(m_model.alert.value()->title, u"Ripping Failed"_s);
    EXPECT_EQ(m_model.chapters.value().size(), 2);
    EXPECT_TRUE(QFile::exists(m_fixture.outputPath(u"01-Eins.flac"_s)));
    EXPECT_TRUE(log().contains(u"Eins"_s));
    EXPECT_FALSE(log().contains(u"Zwei"_s)) << log().toStdString();
}

TEST_F(DiscJob, GoesOnWhenTheDriveWontGiveItsDiscBack)
{
    load();
    m_fixture.ejector().refuses = true;
    const auto onEncoding = atMessage(u"Encoding 1"_s, [this] { m_model.ejectCurrentDisc(); });
    m_fixture.runJob();
    EXPECT_EQ(m_model.encodedFiles.value().size(), 2) << m_model.statusText().toStdString();
    EXPECT_EQ(m_model.detectedDiscs.value(), QList{m_disc});
}

TEST_F(DiscJob, GoesOnWhenAnotherDiscComesOrGoes)
{
    load();
    DiscInfo other = m_disc;
    other.volumeURL = m_fixture.url(u"other"_s);
    const auto onReading = atMessage(u"Reading track 1"_s, [this, other] {
        m_fixture.discScan().discs = {m_disc, other};
        m_model.refreshDiscs();
    });
    const auto onEncoding = atMessage(u"Encoding 1"_s, [this, other] { m_model.ejectDisc(other); });
    m_fixture.runJob();
    EXPECT_EQ(m_fixture.ejector().ejected, QList{other.volumeURL});
    EXPECT_EQ(m_model.encodedFiles.value().size(), 2) << m_model.statusText().toStdString();
    EXPECT_EQ(m_model.loadedDisc.value(), m_disc);
    EXPECT_TRUE(m_model.detectedDiscs.value().isEmpty());
}

TEST(DiscJobProgress, GivesReadingTheLargestPart)
{
    const DiscJobProgress second(1, 2, false);
    EXPECT_DOUBLE_EQ(second.reading(0), 0.5);
    EXPECT_DOUBLE_EQ(second.reading(1), 0.925);
    EXPECT_DOUBLE_EQ(second.encoding(1), 1);
    const DiscJobProgress verified(0, 1, true);
    EXPECT_DOUBLE_EQ(verified.reading(1), 0.45);
    EXPECT_DOUBLE_EQ(verified.verifying(0.5), 0.675);
    EXPECT_DOUBLE_EQ(verified.encoding(0), 0.9);
}

} // namespace tonearm
