// SPDX-License-Identifier: GPL-3.0-or-later
// The log that a job leaves, word for word but for the times that it took.
#include "helpers/Contents.h"
#include "helpers/ModelFixture.h"
#include "helpers/Printing.h"
#include "helpers/ScriptedTools.h"
#include "helpers/Surroundings.h"

#include <gtest/gtest.h>

#include <QDateTime>
#include <QRegularExpression>

namespace tonearm {

using namespace Qt::StringLiterals;
using test::Locale;
using test::ModelFixture;
using test::ScriptedTools;
using test::TimeZone;

namespace {

// With each date as DATE and each time that something took as TIME.
QString normalized(QString log)
{
    static const QRegularExpression date(u"[A-Z][a-z]{2} \\d{1,2}, \\d{4} at \\d{1,2}:\\d{2}:\\d{2} [AP]M"_s);
    static const QRegularExpression time(u"\\b\\d+\\.\\ds\\b"_s);
    return log.replace(date, u"DATE"_s).replace(time, u"TIME"_s);
}

// A job of three tracks in a time zone three hours east of Greenwich, in a locale of choice.
class JobLog : public testing::TestWithParam<QByteArray>
{
protected:
    JobLog()
    {
        m_model.artist = u"The Artist"_s;
        m_model.albumTitle = u"The Album"_s;
        m_model.albumYear = u"1999-03"_s;
        m_model.discNumber = u"2"_s;
    }

    void run(const QByteArray &bodyOfSecond)
    {
        m_tools.setEncoding("if [ \"$track\" = 2 ]; then\n" + bodyOfSecond +
                            "\nfi\necho sound > \"$output\"");
        m_fixture.prepareJob(m_tools.source());
        m_fixture.runJob();
    }

    QString log()
    {
        return QString::fromUtf8(test::readFile(m_model.lastLogURL.value().value().toLocalFile()));
    }

    QString beginning() const
    {
        return u"Tonearm 1.2.3 — encoding log\n"
               u"DATE\n"
               u"ffmpeg 9.9\n"
               u"\n"
               u"Source\n"
               u"------\n"
               u"  Input file     %1\n"
               u"  Output folder  %2\n"
               u"  Saved to       %2/The Artist/The Album\n"
               u"\n"
               u"Metadata\n"
               u"--------\n"
               u"  Artist     The Artist\n"
               u"  Album      The Album\n"
               u"  Year       1999-03\n"
               u"  Disc       2\n"
               u"  Cover art  none\n"
               u"\n"
               u"Audio\n"
               u"-----\n"
               u"  Format       FLAC\n"
               u"  Bit depth    16-bit\n"
               u"  Sample rate  44.1 kHz\n"
               u"  Lossless     yes\n"
               u"\n"_s.arg(m_tools.source(), m_fixture.outputPath());
    }

    TimeZone m_zone{"TST-3"};
    Locale m_locale{GetParam()};
    ScriptedTools m_tools{{{0, 75.38, u"One"_s}, {75.38, 80, u"Zwei / 二"_s}, {80, 4000.25, u"Three"_s}}};
    ModelFixture m_fixture{{.tools = m_tools.location()}};
    AppModel &m_model = m_fixture.model();
};

} // namespace

TEST_P(JobLog, TellsOfAFinishedJob)
{
    run("true");
    EXPECT_EQ(normalized(log()), beginning() +
                                     u"Chapters\n"
                                     u"--------\n"
                                     u"  01  One  [0:00.0 – 1:15.3]  encode TIME  → 01-One.flac\n"
                                     u"  02  Zwei / 二  [1:15.3 – 1:20.0]  encode TIME  → 02-Zwei-二.flac\n"
                                     u"  03  Three  [1:20.0 – 66:40.2]  encode TIME  → 03-Three.flac\n"
                                     u"\n"
                                     u"Result\n"
                                     u"------\n"
                                     u"  Files written  3 of 3\n"
                                     u"  Finished       DATE\n"
                                     u"  Total time     TIME\n"
                                     u"  Outcome        completed\n"
                                     u"\n"_s);
}

TEST_P(JobLog, TellsOfACancelledJob)
{
    const auto onProgress = m_model.encodingProgress.onValueChanged([this] {
        if (m_model.encodingProgress.value() > 0)
            m_model.cancelEncoding();
    });
    run("true");
    EXPECT_EQ(normalized(log()), beginning() + u"Chapters\n"
                                               u"--------\n"
                                               u"  01  One  [0:00.0 – 1:15.3]  encode TIME  → 01-One.flac\n"
                                               u"  02  Zwei / 二  [1:15.3 – 1:20.0]\n"
                                               u"  03  Three  [1:20.0 – 66:40.2]\n"
                                               u"\n"
                                               u"Result\n"
                                               u"------\n"
                                               u"  Files written  1 of 3\n"
                                               u"  Finished       DATE\n"
                                               u"  Total time     TIME\n"
                                               u"  Outcome        cancelled by the user\n"
                                               u"\n"_s);
}

TEST_P(JobLog, TellsOfAFailedJob)
{
    run("echo 'no good' >&2; exit 3");
    EXPECT_EQ(normalized(log()), beginning() + u"Chapters\n"
                                               u"--------\n"
                                               u"  01  One  [0:00.0 – 1:15.3]  encode TIME  → 01-One.flac\n"
                                               u"  02  Zwei / 二  [1:15.3 – 1:20.0]\n"
                                               u"  03  Three  [1:20.0 – 66:40.2]\n"
                                               u"\n"
                                               u"Result\n"
                                               u"------\n"
                                               u"  Files written  1 of 3\n"
                                               u"  Finished       DATE\n"
                                               u"  Total time     TIME\n"
                                               u"  Outcome        failed\n"
                                               u"  Reason         ffmpeg exited with status 3.\n"
                                               u"\n"
                                               u"no good\n"
                                               u"\n"_s);
}

TEST_P(JobLog, TellsTheTimeOfTheMachinesZone)
{
    const QDateTime before = QDateTime::currentDateTimeUtc();
    run("true");
    const QDateTime after = QDateTime::currentDateTimeUtc();
    const QString told = log().split(u'\n')[1];
    QDateTime started = QLocale::c().toDateTime(told, u"MMM d, yyyy 'at' h:mm:ss AP"_s);
    started.setOffsetFromUtc(3 * 3600);
    ASSERT_TRUE(started.isValid()) << told.toStdString();
    EXPECT_GE(started, before.addSecs(-1));
    EXPECT_LE(started, after);
    EXPECT_EQ(m_model.lastLogURL.value().value().fileName(),
              QLocale::c().toString(started, u"yyyy-MM-dd HH-mm-ss"_s) + u" The Artist - The Album.log"_s);
}

INSTANTIATE_TEST_SUITE_P(Locales, JobLog, testing::Values("C", "de_DE", "tr_TR", "ja_JP"),
                         [](const auto &locale) { return locale.param.toStdString(); });

} // namespace tonearm
