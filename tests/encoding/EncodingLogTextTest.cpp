// SPDX-License-Identifier: GPL-3.0-or-later
#include "encoding/EncodingLogText.h"

#include "helpers/Printing.h"
#include "helpers/Surroundings.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QStringList>
#include <QTimeZone>

#include <chrono>

namespace tonearm {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using Entry = EncodingLog::Entry;

namespace {

// Three hours east of Greenwich.
constexpr auto testZone = "TST-3";

QDateTime utc(int hour, int minute, int second, int milliseconds = 0)
{
    return {QDate(2026, 1, 5), QTime(hour, minute, second, milliseconds), Qt::UTC};
}

EncodingLog fileJob()
{
    return {
        .appVersion = u"1.2.3"_s,
        .startedAt = utc(12, 4, 5),
        .source = EncodingLog::FileSource{QUrl::fromLocalFile(u"/videos/A Concert #1 (50%).mkv"_s)},
        .outputFolder = QUrl::fromLocalFile(u"/music/"_s),
        .destinationFolder = QUrl::fromLocalFile(u"/music/Some Artist/Some Album"_s),
        .ffmpegVersion = u"ffmpeg version 5.1.6"_s,
        .artist = u"Some Artist"_s,
        .album = u"Some Album"_s,
        .year = u"c. 1999"_s,
        .genre = u"Rock"_s,
        .discNumber = u"1"_s,
        .discTotal = u"2"_s,
        .coverArt = u"Discogs — cover.jpg"_s,
        .sourceAudio = AudioStreamInfo{.codecName = u"pcm_s24le"_s, .sampleRateHertz = 96000, .bitDepth = 24},
        .verificationEnabled = true,
        .entries =
            {Entry{.number = 1,
                   .title = u"Opening"_s,
                   .startSeconds = 0,
                   .endSeconds = 75.38,
                   .encodeDuration = 1240ms,
                   .outputFilename = u"01-Opening.flac"_s},
             Entry{.number = 2, .title = u"Größe / 日本"_s, .startSeconds = 75.38, .endSeconds = 3725.99}},
    };
}

EncodingLog completedFileJob()
{
    EncodingLog log = fileJob();
    log.entries[1].encodeDuration = 61s;
    log.entries[1].outputFilename = u"02-Größe-日本.flac"_s;
    log.finishedAt = utc(12, 5, 7, 300);
    return log;
}

const QString completedFileText = uR"(Tonearm 1.2.3 — encoding log
Jan 5, 2026 at 3:04:05 PM
ffmpeg version 5.1.6

Source
------
  Input file     /videos/A Concert #1 (50%).mkv
  Output folder  /music
  Saved to       /music/Some Artist/Some Album

Metadata
--------
  Artist     Some Artist
  Album      Some Album
  Year       c. 1999
  Genre      Rock
  Disc       1 of 2
  Cover art  Discogs — cover.jpg

Audio
-----
  Format       LPCM
  Bit depth    24-bit
  Sample rate  96 kHz
  Lossless     yes

Chapters
--------
  01  Opening  [0:00.0 – 1:15.3]  encode 1.2s  → 01-Opening.flac
  02  Größe / 日本  [1:15.3 – 62:05.9]  encode 61.0s  → 02-Größe-日本.flac

Result
------
  Files written  2 of 2
  Finished       Jan 5, 2026 at 3:05:07 PM
  Total time     1:02
  Outcome        completed

)"_s;

EncodingLog discJob()
{
    return {
        .appVersion = u"1.2.3"_s,
        .startedAt = utc(21, 0, 9),
        .source = EncodingLog::DiscSource{u"/run/media/Audio CD"_s, u"xA.Sj_6V_cFNlpXsUDLO3DSMgO4-"_s, 5},
        .outputFolder = QUrl::fromLocalFile(u"/music"_s),
        .destinationFolder = QUrl::fromLocalFile(u"/music"_s),
        .ffmpegVersion = u"ffmpeg version 5.1.6"_s,
        .cdParanoiaVersion = u"cd-paranoia 10.2"_s,
        .discTotal = u"2"_s,
        .sourceAudio = AudioStreamInfo{.codecName = u"pcm_s16be"_s, .sampleRateHertz = 44100, .bitDepth = 16},
        .verificationEnabled = true,
        .reader = u"cd-paranoia"_s,
        .entries = {Entry{.number = 1,
                          .title = u"One"_s,
                          .readDuration = 12340ms,
                          .verification = RipVerification::secure,
                          .encodeDuration = 900ms,
                          .outputFilename = u"01-One.flac"_s},
                    Entry{.number = 2,
                          .title = u"Two"_s,
                          .readDuration = 10s,
                          .verifyDuration = 9960ms,
                          .verification = RipVerification::verified,
                          .encodeDuration = 1s,
                          .outputFilename = u"02-Two.flac"_s},
                    Entry{.number = 3,
                          .title = u"Three"_s,
                          .readDuration = 10s,
                          .verifyDuration = 11s,
                          .verification = RipVerification::mismatched,
                          .encodeDuration = 1s,
                          .outputFilename = u"03-Three.flac"_s},
                    Entry{.number = 4,
                          .title = u"Four"_s,
                          .readDuration = 2s,
                          .verification = RipVerification::unverified},
                    Entry{.number = 10,
                          .title = u"Ten"_s,
                          .verification = RipVerification::mismatched,
                          .error = u"The disc couldn't be read."_s}},
        .finishedAt = utc(21, 1, 8, 960),
        .failure = u"The disc couldn't be read. Clean it."_s,
    };
}

// The lines of a log's text that begin with one of its labels or titles.
QStringList linesWith(const EncodingLog &log, const QString &start)
{
    QStringList result;
    for (const QString &line : encodingLogText(log).split(u'\n')) {
        if (line.trimmed().startsWith(start))
            result << line;
    }
    return result;
}

// The one value that a label has.
QString valueOf(const EncodingLog &log, const QString &label)
{
    const QStringList lines = linesWith(log, label);
    return lines.size() == 1 ? lines.first().trimmed().sliced(label.size()).trimmed() : u"(not one row)"_s;
}

// The line of a log's only entry.
QString entryLine(const Entry &entry)
{
    EncodingLog log;
    log.entries = {entry};
    const QStringList lines = encodingLogText(log).split(u'\n');
    return lines.value(lines.indexOf(u"Chapters"_s) + 2);
}

QString totalTime(qint64 milliseconds)
{
    EncodingLog log = fileJob();
    log.finishedAt = log.startedAt.addMSecs(milliseconds);
    return valueOf(log, u"Total time"_s);
}

} // namespace

TEST(EncodingLogText, TellsOfACompletedFileJob)
{
    const test::TimeZone zone(testZone);
    EXPECT_EQ(encodingLogText(completedFileJob()), completedFileText);
    EXPECT_EQ(completedFileJob().text(), completedFileText);
}

TEST(EncodingLogText, IsTheSameInEveryLocale)
{
    const test::TimeZone zone(testZone);
    for (const char *name : {"de_DE", "tr_TR", "ja_JP", "ar_EG", "th_TH"}) {
        const test::Locale locale(name);
        EXPECT_EQ(encodingLogText(completedFileJob()), completedFileText) << name;
    }
}

TEST(EncodingLogText, TellsOfACancelledFileJob)
{
    const test::TimeZone zone(testZone);
    EncodingLog log = fileJob();
    log.sourceAudio = std::nullopt;
    log.destinationFolder = std::nullopt;
    log.coverArt = std::nullopt;
    log.ffmpegVersion = std::nullopt;
    log.discTotal.clear();
    log.finishedAt = utc(12, 4, 15);
    log.failure = u"isn't shown"_s;
    log.wasCancelled = true;
    EXPECT_EQ(encodingLogText(log), uR"(Tonearm 1.2.3 — encoding log
Jan 5, 2026 at 3:04:05 PM

Source
------
  Input file     /videos/A Concert #1 (50%).mkv
  Output folder  /music

Metadata
--------
  Artist     Some Artist
  Album      Some Album
  Year       c. 1999
  Genre      Rock
  Disc       1
  Cover art  none

Chapters
--------
  01  Opening  [0:00.0 – 1:15.3]  encode 1.2s  → 01-Opening.flac
  02  Größe / 日本  [1:15.3 – 62:05.9]

Result
------
  Files written  1 of 2
  Finished       Jan 5, 2026 at 3:04:15 PM
  Total time     10.0s
  Outcome        cancelled by the user

)"_s);
}

TEST(EncodingLogText, TellsOfAFailedFileJob)
{
    const test::TimeZone zone(testZone);
    EncodingLog log = fileJob();
    log.appVersion = u"2.0"_s;
    log.outputFolder = std::nullopt;
    log.artist.clear();
    log.year.clear();
    log.genre.clear();
    log.discNumber.clear();
    log.discTotal.clear();
    log.sourceAudio = AudioStreamInfo{.codecName = u"ac3"_s, .sampleRateHertz = 44100, .bitDepth = 0};
    log.failure = u"ffmpeg exited with status 1."_s;
    EXPECT_EQ(encodingLogText(log), uR"(Tonearm 2.0 — encoding log
Jan 5, 2026 at 3:04:05 PM
ffmpeg version 5.1.6

Source
------
  Input file  /videos/A Concert #1 (50%).mkv
  Saved to    /music/Some Artist/Some Album

Metadata
--------
  Album      Some Album
  Cover art  Discogs — cover.jpg

Audio
-----
  Format       Dolby Digital
  Sample rate  44.1 kHz
  Lossless     no

Chapters
--------
  01  Opening  [0:00.0 – 1:15.3]  encode 1.2s  → 01-Opening.flac
  02  Größe / 日本  [1:15.3 – 62:05.9]

Result
------
  Files written  1 of 2
  Outcome        failed
  Reason         ffmpeg exited with status 1.

)"_s);
}

TEST(EncodingLogText, TellsOfADiscJob)
{
    const test::TimeZone zone(testZone);
    EXPECT_EQ(encodingLogText(discJob()), uR"(Tonearm 1.2.3 — encoding log
Jan 6, 2026 at 12:00:09 AM
ffmpeg version 5.1.6
cd-paranoia 10.2

Source
------
  Audio CD        /run/media/Audio CD
  Disc ID         xA.Sj_6V_cFNlpXsUDLO3DSMgO4-
  Tracks on disc  5
  Output folder   /music

Metadata
--------
  Disc       ? of 2
  Cover art  none

Audio
-----
  Format                LPCM
  Bit depth             16-bit
  Sample rate           44.1 kHz
  Lossless              yes
  Read with             cd-paranoia
  Verify by re-reading  on

Tracks
------
  01  One  read 12.3s  secure  encode 0.9s  → 01-One.flac
  02  Two  read 10.0s  verify 10.0s  verified  encode 1.0s  → 02-Two.flac
  03  Three  read 10.0s  verify 11.0s  MISMATCH  encode 1.0s  → 03-Three.flac
  04  Four  read 2.0s
  10  Ten  MISMATCH
      error: The disc couldn't be read.

Result
------
  Files written        3 of 5
  Failed verification  3, 10
  Finished             Jan 6, 2026 at 12:01:08 AM
  Total time           60.0s
  Outcome              failed
  Reason               The disc couldn't be read. Clean it.

)"_s);
}

TEST(EncodingLogText, TellsOfAJobThatNeverGotToATrack)
{
    EncodingLog log = fileJob();
    log.entries[0].outputFilename = std::nullopt;
    log.wasCancelled = true;
    log.failure = u"isn't shown"_s;
    EXPECT_EQ(valueOf(log, u"Files written"_s), u"0 of 2"_s);
    EXPECT_EQ(valueOf(log, u"Outcome"_s), u"cancelled by the user"_s);
    EXPECT_EQ(linesWith(log, u"Reason"_s), QStringList());
}

TEST(EncodingLogText, HasNoTrackListWithoutEntries)
{
    EncodingLog log = fileJob();
    log.entries.clear();
    EXPECT_EQ(linesWith(log, u"Chapters"_s), QStringList());
    EXPECT_EQ(valueOf(log, u"Files written"_s), u"0 of 0"_s);
    log.source = EncodingLog::DiscSource{};
    EXPECT_EQ(linesWith(log, u"Tracks"_s), QStringList{u"  Tracks on disc  0"_s});
}

TEST(EncodingLogText, HasNoAudioSectionWithoutAStream)
{
    EncodingLog log = discJob();
    log.sourceAudio = std::nullopt;
    EXPECT_EQ(linesWith(log, u"Audio"_s), QStringList{u"  Audio CD        /run/media/Audio CD"_s});
    EXPECT_EQ(linesWith(log, u"Read with"_s), QStringList());
}

TEST(EncodingLogText, TellsTheReaderForDiscsOnly)
{
    EncodingLog log = fileJob();
    log.reader = u"cd-paranoia"_s;
    EXPECT_EQ(linesWith(log, u"Read with"_s), QStringList());
    EXPECT_EQ(linesWith(log, u"Verify"_s), QStringList());

    EncodingLog disc = discJob();
    disc.reader = std::nullopt;
    disc.verificationEnabled = false;
    EXPECT_EQ(linesWith(disc, u"Read with"_s), QStringList());
    EXPECT_EQ(valueOf(disc, u"Verify by re-reading"_s), u"off"_s);
}

TEST(EncodingLogText, LeavesOutASampleRateThatIsNone)
{
    EncodingLog log = fileJob();
    log.sourceAudio = AudioStreamInfo{.codecName = u"flac"_s, .sampleRateHertz = 0};
    EXPECT_EQ(linesWith(log, u"Sample rate"_s), QStringList());
    EXPECT_EQ(linesWith(log, u"Bit depth"_s), QStringList());
    EXPECT_EQ(valueOf(log, u"Format"_s), u"FLAC"_s);
}

TEST(EncodingLogText, NamesADiscOfWhichOnlyTheTotalIsKnown)
{
    EncodingLog log = fileJob();
    log.discNumber.clear();
    EXPECT_EQ(valueOf(log, u"Disc"_s), u"? of 2"_s);
    log.discTotal.clear();
    EXPECT_EQ(linesWith(log, u"Disc "_s), QStringList());
}

TEST(EncodingLogText, TellsTheDestinationOnlyIfItIsElsewhere)
{
    EncodingLog log = fileJob();
    log.destinationFolder = log.outputFolder;
    EXPECT_EQ(linesWith(log, u"Saved to"_s), QStringList());
    log.destinationFolder = QUrl::fromLocalFile(u"/music"_s);
    EXPECT_EQ(linesWith(log, u"Saved to"_s), QStringList()) << "a slash at the end makes no other folder";
    log.outputFolder = std::nullopt;
    EXPECT_EQ(valueOf(log, u"Saved to"_s), u"/music"_s);
}

TEST(EncodingLogText, ShowsPathsPlainly)
{
    EncodingLog log = fileJob();
    log.outputFolder = QUrl::fromLocalFile(u"/"_s);
    log.destinationFolder = QUrl::fromLocalFile(u"/a %41/b#c?//"_s);
    EXPECT_EQ(valueOf(log, u"Output folder"_s), u"/"_s);
    EXPECT_EQ(valueOf(log, u"Saved to"_s), u"/a %41/b#c?/"_s);
}

TEST(EncodingLogText, CutsPositionsToTenths)
{
    EXPECT_EQ(entryLine({.number = 7, .title = u"T"_s, .startSeconds = 75.38, .endSeconds = 6000.999}),
              u"  07  T  [1:15.3 – 100:00.9]"_s);
    EXPECT_EQ(entryLine({.number = 123, .title = u"T"_s, .startSeconds = 59.99, .endSeconds = 60}),
              u"  123  T  [0:59.9 – 1:00.0]"_s);
}

TEST(EncodingLogText, TellsPositionsOnlyIfBothAreKnown)
{
    EXPECT_EQ(entryLine({.number = 1, .title = u"T"_s, .startSeconds = 5}), u"  01  T"_s);
    EXPECT_EQ(entryLine({.number = 1, .title = u"T"_s, .endSeconds = 5}), u"  01  T"_s);
}

TEST(EncodingLogText, SaysNothingOfAnUnverifiedTrack)
{
    EXPECT_EQ(entryLine({.number = 1, .title = u"T"_s, .verification = RipVerification::unverified}),
              u"  01  T"_s);
    EXPECT_EQ(entryLine({.number = 1, .title = u"T"_s, .verification = RipVerification::secure}),
              u"  01  T  secure"_s);
}

TEST(EncodingLogText, RoundsDurationsToTenths)
{
    EXPECT_EQ(entryLine({.number = 1,
                         .title = u"T"_s,
                         .readDuration = 61999999999ns,
                         .verifyDuration = 40ms,
                         .encodeDuration = 1560ms}),
              u"  01  T  read 62.0s  verify 0.0s  encode 1.6s"_s);
}

TEST(EncodingLogText, TellsTheTotalTimeInSecondsUpToAMinute)
{
    EXPECT_EQ(totalTime(0), u"0.0s"_s);
    EXPECT_EQ(totalTime(59960), u"60.0s"_s);
    EXPECT_EQ(totalTime(60000), u"1:00"_s);
    EXPECT_EQ(totalTime(60400), u"1:00"_s);
    EXPECT_EQ(totalTime(60500), u"1:01"_s);
    EXPECT_EQ(totalTime(7'384'000), u"123:04"_s);
}

TEST(EncodingLogText, TellsDatesInEnglishOnATwelveHourClock)
{
    const test::TimeZone zone("TST+5");
    const auto started = [](const QDateTime &date) {
        EncodingLog log;
        log.startedAt = date;
        return encodingLogText(log).split(u'\n').value(1);
    };
    EXPECT_EQ(started(utc(5, 0, 0)), u"Jan 5, 2026 at 12:00:00 AM"_s);
    EXPECT_EQ(started(utc(17, 0, 0)), u"Jan 5, 2026 at 12:00:00 PM"_s);
    EXPECT_EQ(started(utc(4, 59, 59)), u"Jan 4, 2026 at 11:59:59 PM"_s);
    const QStringList months = {u"Jan"_s, u"Feb"_s, u"Mar"_s, u"Apr"_s, u"May"_s, u"Jun"_s,
                                u"Jul"_s, u"Aug"_s, u"Sep"_s, u"Oct"_s, u"Nov"_s, u"Dec"_s};
    for (int month = 1; month <= 12; ++month) {
        EXPECT_EQ(started(QDateTime(QDate(2026, month, 15), QTime(20, 0), Qt::UTC)),
                  months[month - 1] + u" 15, 2026 at 3:00:00 PM"_s);
    }
}

} // namespace tonearm
