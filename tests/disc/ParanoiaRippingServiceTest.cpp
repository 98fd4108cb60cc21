// SPDX-License-Identifier: GPL-3.0-or-later
#include "disc/ParanoiaRippingService.h"

#include "disc/DiscError.h"
#include "disc/ParanoiaArguments.h"
#include "disc/ParanoiaFixture.h"
#include "helpers/Await.h"
#include "helpers/Contents.h"
#include "helpers/Printing.h"
#include "support/Digest.h"
#include "support/PathText.h"
#include "tools/CDParanoiaInstallation.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QFile>
#include <QFileInfo>
#include <QThread>
#include <QUuid>

#include <algorithm>
#include <atomic>
#include <mutex>
#include <system_error>
#include <vector>

namespace tonearm {

using namespace Qt::StringLiterals;
using test::await;
using test::awaitError;

namespace {

class ParanoiaRipping : public test::ParanoiaFixture
{
protected:
    // The failure of a rip, with a look that it left nothing.
    std::optional<DiscError> ripError()
    {
        const std::optional<DiscError> error = awaitError<DiscError>(rip());
        EXPECT_EQ(files(), QStringList());
        return error;
    }
};

// Fractions from whichever thread.
class Fractions
{
public:
    TrackRipping::Progress taking()
    {
        return [this](double fraction) {
            const std::lock_guard guard(m_lock);
            m_fractions.push_back(fraction);
            m_thread = QThread::currentThread();
        };
    }

    std::vector<double> all() const
    {
        const std::lock_guard guard(m_lock);
        return m_fractions;
    }

    bool have(double fraction) const
    {
        const std::vector<double> taken = all();
        return std::find(taken.begin(), taken.end(), fraction) != taken.end();
    }

    QThread *thread() const { return m_thread; }

private:
    mutable std::mutex m_lock;
    std::vector<double> m_fractions;
    std::atomic<QThread *> m_thread = nullptr;
};

} // namespace

TEST_F(ParanoiaRipping, NamesItsReader)
{
    EXPECT_EQ(service().readerName(), u"cd-paranoia"_s);
}

TEST_F(ParanoiaRipping, GivesTheFileItsChecksumAndItsAssurance)
{
    setProgram("write 23564");
    const RippedTrack ripped = await(rip());
    const QString path = ripped.url.toLocalFile();
    EXPECT_EQ(test::readFile(path).size(), expectedBytes);
    EXPECT_EQ(ripped.checksum, sha256Hex(test::readFile(path)));
    EXPECT_EQ(ripped.assurance, RipVerification::secure);
}

TEST_F(ParanoiaRipping, NamesTheFileAfterTheTrack)
{
    setProgram("write 23564");
    const QUrl url = await(rip()).url;
    EXPECT_EQ(QFileInfo(url.toLocalFile()).path(), ripFolder());
    const QString name = lastPathComponent(url);
    EXPECT_TRUE(name.startsWith(u"paranoia-3-"_s) && name.endsWith(u".wav"_s)) << name.toStdString();
    EXPECT_FALSE(QUuid(name.sliced(11).chopped(4)).isNull()) << name.toStdString();
    EXPECT_NE(await(rip()).url, url);
}

TEST_F(ParanoiaRipping, TellsTheProgramWhatToRead)
{
    setProgram(R"(write 23564; for item; do printf '%s\n' "$item" >> "$here/arguments"; done)");
    for (const bool precedesDataSession : {false, true}) {
        track.precedesDataSession = precedesDataSession;
        QFile::remove(tools().path(u"arguments"_s));
        const QString output = await(rip()).url.toLocalFile();
        const QStringList arguments = paranoiaArguments(track, u"/dev/the drive"_s, output);
        EXPECT_EQ(QString::fromUtf8(test::readFile(tools().path(u"arguments"_s))),
                  arguments.join(u'\n') + u'\n');
    }
}

TEST_F(ParanoiaRipping, TakesALongerFile)
{
    setProgram("write 23565");
    EXPECT_EQ(await(rip()).assurance, RipVerification::secure);
}

TEST_F(ParanoiaRipping, RefusesAFileThatIsOneByteShort)
{
    setProgram("write 23563");
    EXPECT_EQ(ripError(), DiscError::trackReadFailed(
                              3, u"Only 23563 of 23564 bytes were read. The drive stopped early."_s));
}

TEST_F(ParanoiaRipping, ReportsTheEndBeforeItLooksAtTheSize)
{
    setProgram("write 23563");
    double last = 0;
    EXPECT_TRUE(awaitError<DiscError>(rip([&last](double fraction) { last = fraction; })));
    EXPECT_EQ(last, 1.0);
}

TEST_F(ParanoiaRipping, RefusesAShortFileWithTheProgramsComplaints)
{
    setProgram("echo 'Unable to read' >&2; write 100; echo fine >&2; echo 'Seek failed' >&2");
    EXPECT_EQ(ripError(), DiscError::trackReadFailed(
                              3, u"Only 100 of 23564 bytes were read. Unable to read Seek failed"_s));
}

TEST_F(ParanoiaRipping, CountsAMissingFileAsEmpty)
{
    setProgram("exit 0");
    EXPECT_EQ(ripError(),
              DiscError::trackReadFailed(3, u"Only 0 of 23564 bytes were read. The drive stopped early."_s));
}

TEST_F(ParanoiaRipping, VouchesForNoReadWithComplaints)
{
    for (const char *line :
         {"Skipped 2 sectors", "SKIPPED 2 sectors", "405: Option not supported by drive"}) {
        setProgram("write 23564; echo '" + QByteArray(line) + "' >&2");
        EXPECT_EQ(await(rip()).assurance, RipVerification::unverified) << line;
    }
    setProgram("write 23564; echo 'all is well' >&2");
    EXPECT_EQ(await(rip()).assurance, RipVerification::secure);
}

TEST_F(ParanoiaRipping, TellsTheComplaintsOfAProgramThatFails)
{
    setProgram("write 23564; for n in 1 2 3 4; do echo \"error $n\" >&2; done; exit 1");
    EXPECT_EQ(ripError(), DiscError::trackReadFailed(3, u"error 2 error 3 error 4"_s));
}

TEST_F(ParanoiaRipping, TellsTheStatusOfAProgramThatFailsWithoutComplaint)
{
    setProgram("echo 'what now?' >&2; exit 42");
    EXPECT_EQ(ripError(),
              DiscError::trackReadFailed(3, u"cd-paranoia exited with status 42.\n\nwhat now?"_s));
}

TEST_F(ParanoiaRipping, TellsTheSignalThatEndedTheProgram)
{
    setProgram("write 100; kill -9 $$");
    EXPECT_EQ(ripError(), DiscError::trackReadFailed(3, u"cd-paranoia exited with status 9."_s));
}

TEST_F(ParanoiaRipping, PassesOverGarbageOnStderr)
{
    setProgram(R"(printf '\377\376 error\n\0\r\r\nskip\r' >&2; write 10)");
    EXPECT_EQ(ripError(), DiscError::trackReadFailed(3, u"Only 10 of 23564 bytes were read. skip"_s));
}

TEST_F(ParanoiaRipping, TellsWhyTheProgramDoesntStart)
{
    tools().addBytes(u"cd-paranoia"_s, "\x7f"
                                       "ELF, but no program");
    EXPECT_EQ(ripError(), DiscError::trackReadFailed(3, u"Exec format error."_s));
}

TEST_F(ParanoiaRipping, NeedsTheDrivesDevice)
{
    disc.rawDevice = std::nullopt;
    EXPECT_EQ(ripError(), DiscError::driveUnavailable());
}

TEST_F(ParanoiaRipping, NeedsTheProgram)
{
    EXPECT_TRUE(awaitError<CDParanoiaNotFoundError>(rip()).has_value());
    EXPECT_TRUE(awaitError<CDParanoiaNotFoundError>(verify({})).has_value());
    EXPECT_EQ(files(), QStringList());
}

TEST_F(ParanoiaRipping, NeedsItsFolder)
{
    setProgram("write 23564");
    test::writeFile(tools().path(u"file"_s), {});
    ParanoiaRippingService service(tools().location(), tools().path(u"file"_s));
    const auto error = awaitError<std::system_error>(service.rip(track, disc, {}, {}));
    ASSERT_TRUE(error.has_value());
    EXPECT_EQ(error->code(), std::errc::not_a_directory);
}

TEST_F(ParanoiaRipping, VerifiesByReadingAgain)
{
    setProgram("echo read >> \"$here/reads\"; write 23564");
    const RippedTrack ripped = await(rip());
    EXPECT_TRUE(await(verify(ripped.checksum)));
    EXPECT_EQ(test::readFile(tools().path(u"reads"_s)).count('\n'), 2);
    EXPECT_EQ(files(), QStringList{lastPathComponent(ripped.url)});
}

TEST_F(ParanoiaRipping, TellsASecondReadThatDiffers)
{
    setProgram("write 23563; printf x >> \"$output\"");
    const QString checksum = await(rip()).checksum;
    setProgram("write 23564");
    EXPECT_FALSE(await(verify(checksum)));
    EXPECT_EQ(files().size(), 1);
}

TEST_F(ParanoiaRipping, ComparesChecksumsExactly)
{
    setProgram("write 23564");
    const QString checksum = await(rip()).checksum;
    EXPECT_FALSE(await(verify(checksum.toUpper())));
    EXPECT_FALSE(await(verify(checksum + u' ')));
}

TEST_F(ParanoiaRipping, NamesTheFileOfAVerification)
{
    setProgram("write 23564; basename \"$output\" > \"$here/name\"");
    await(verify({}));
    const QString name = QString::fromUtf8(test::readFile(tools().path(u"name"_s))).trimmed();
    const QString prefix = u"paranoia-verify-3-"_s;
    EXPECT_TRUE(name.startsWith(prefix) && name.endsWith(u".wav"_s)) << name.toStdString();
    EXPECT_FALSE(QUuid(name.sliced(prefix.size()).chopped(4)).isNull()) << name.toStdString();
    EXPECT_EQ(files(), QStringList());
}

TEST_F(ParanoiaRipping, TakesAFailedVerificationForAFailure)
{
    setProgram("write 23563");
    EXPECT_EQ(
        awaitError<DiscError>(verify({})),
        DiscError::trackReadFailed(3, u"Only 23563 of 23564 bytes were read. The drive stopped early."_s));
    EXPECT_EQ(files(), QStringList());
}

TEST_F(ParanoiaRipping, ReportsAsTheFileGrowsAndTheEndOnceTheProgramHasEnded)
{
    setProgram("write 11782; waitFor go; write 11782");
    Fractions fractions;
    QCoro::Task<RippedTrack> ripping = rip(fractions.taking());
    EXPECT_TRUE(test::eventually([&] { return fractions.have(0.5); }));
    test::writeFile(tools().path(u"go"_s), {});
    await(std::move(ripping));
    const std::vector<double> all = fractions.all();
    EXPECT_TRUE(std::is_sorted(all.begin(), all.end()));
    EXPECT_EQ(std::count(all.begin(), all.end(), 1.0), 1);
    EXPECT_EQ(all.back(), 1.0);
    EXPECT_NE(fractions.thread(), QThread::currentThread());
}

TEST_F(ParanoiaRipping, NeverReportsMoreThanNinetyNineHundredthsWhileTheProgramRuns)
{
    setProgram("write 30000; waitFor go");
    Fractions fractions;
    QCoro::Task<RippedTrack> ripping = rip(fractions.taking());
    EXPECT_TRUE(test::eventually([&] { return fractions.have(0.99); }));
    EXPECT_THAT(fractions.all(), testing::Each(testing::Le(0.99)));
    test::writeFile(tools().path(u"go"_s), {});
    await(std::move(ripping));
    EXPECT_EQ(fractions.all().back(), 1.0);
}

TEST_F(ParanoiaRipping, ReportsNoEndOfAProgramThatFails)
{
    setProgram("write 23564; waitFor go; exit 1");
    Fractions fractions;
    QCoro::Task<bool> verifying = verify({}, fractions.taking());
    EXPECT_TRUE(test::eventually([&] { return fractions.have(0.99); }));
    test::writeFile(tools().path(u"go"_s), {});
    EXPECT_TRUE(awaitError<DiscError>(std::move(verifying)).has_value());
    EXPECT_EQ(fractions.all().back(), 0.99);
}

TEST_F(ParanoiaRipping, MixesNothingUpBetweenTwoReadsAtOnce)
{
    setProgram(R"(write 23564
        if [ "$5" = 3 ]; then echo 'skip' >&2; fi
        : > "$here/started-$5"; waitFor go)");
    QCoro::Task<RippedTrack> complaining = rip();
    track.number = 4;
    QCoro::Task<RippedTrack> clean = rip();
    EXPECT_TRUE(tools().waitFor(u"started-3"_s) && tools().waitFor(u"started-4"_s));
    test::writeFile(tools().path(u"go"_s), {});
    EXPECT_EQ(await(std::move(complaining)).assurance, RipVerification::unverified);
    EXPECT_EQ(await(std::move(clean)).assurance, RipVerification::secure);
}

} // namespace tonearm
