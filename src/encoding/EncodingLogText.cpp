// SPDX-License-Identifier: GPL-3.0-or-later
#include "encoding/EncodingLogText.h"

#include "support/Numbers.h"
#include "support/PathText.h"
#include "support/Text.h"

#include <QLocale>
#include <QStringList>

#include <algorithm>
#include <cmath>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

constexpr double secondsPerMinute = 60;
constexpr double millisecondsPerSecond = 1000;

struct Row
{
    QString label;
    QString value;
};

using Rows = QList<Row>;

void addIfPresent(Rows &rows, const QString &label, const std::optional<QString> &value)
{
    if (value)
        rows.append({label, *value});
}

void addIfNotEmpty(Rows &rows, const QString &label, const QString &value)
{
    if (!value.isEmpty())
        rows.append({label, value});
}

const EncodingLog::DiscSource *discOf(const EncodingLog &log)
{
    return std::get_if<EncodingLog::DiscSource>(&log.source);
}

QString dateText(const QDateTime &date)
{
    return QLocale::c().toString(date.toLocalTime(), u"MMM d, yyyy 'at' h:mm:ss AP"_s);
}

QString durationText(EncodingLog::Duration duration)
{
    return fixedPoint(duration.count(), 1) + u's';
}

QString totalTimeText(double seconds)
{
    if (seconds < secondsPerMinute)
        return durationText(EncodingLog::Duration(seconds));
    return minutesAndSeconds(std::round(seconds));
}

// Tenths are cut off, not rounded.
QString positionText(double seconds)
{
    constexpr double tenthsPerSecond = 10;
    const double whole = std::trunc(seconds);
    const auto tenths = static_cast<qint64>((seconds - whole) * tenthsPerSecond);
    return minutesAndSeconds(whole) + u'.' + QString::number(tenths);
}

QStringList underlined(const QString &title)
{
    return {title, QString(characterCount(title), u'-')};
}

QStringList section(const QString &title, const Rows &rows)
{
    if (rows.isEmpty())
        return {};
    qsizetype width = 0;
    for (const Row &row : rows)
        width = std::max(width, row.label.size());
    QStringList lines = underlined(title);
    for (const Row &row : rows)
        lines << QString(u"  " + row.label.leftJustified(width) + u"  " + row.value);
    return lines << QString();
}

QStringList heading(const EncodingLog &log)
{
    QStringList lines = {u"Tonearm "_s + log.appVersion + u" — encoding log"_s, dateText(log.startedAt)};
    if (log.ffmpegVersion)
        lines << *log.ffmpegVersion;
    if (log.cdParanoiaVersion)
        lines << *log.cdParanoiaVersion;
    return lines << QString();
}

Rows sourceRows(const EncodingLog &log)
{
    Rows rows;
    if (const auto *disc = discOf(log)) {
        rows = {{u"Audio CD"_s, disc->volume},
                {u"Disc ID"_s, disc->discID},
                {u"Tracks on disc"_s, QString::number(disc->trackCount)}};
    } else {
        rows = {{u"Input file"_s, plainPath(std::get<EncodingLog::FileSource>(log.source).url)}};
    }
    const auto outputFolder = log.outputFolder ? std::optional(plainPath(*log.outputFolder)) : std::nullopt;
    addIfPresent(rows, u"Output folder"_s, outputFolder);
    if (log.destinationFolder && plainPath(*log.destinationFolder) != outputFolder)
        rows.append({u"Saved to"_s, plainPath(*log.destinationFolder)});
    return rows;
}

QString discText(const EncodingLog &log)
{
    if (log.discNumber.isEmpty() && log.discTotal.isEmpty())
        return {};
    const QString number = log.discNumber.isEmpty() ? u"?"_s : log.discNumber;
    return log.discTotal.isEmpty() ? number : QString(number + u" of "_s + log.discTotal);
}

Rows metadataRows(const EncodingLog &log)
{
    Rows rows;
    addIfNotEmpty(rows, u"Artist"_s, log.artist);
    addIfNotEmpty(rows, u"Album"_s, log.album);
    addIfNotEmpty(rows, u"Year"_s, log.year);
    addIfNotEmpty(rows, u"Genre"_s, log.genre);
    addIfNotEmpty(rows, u"Disc"_s, discText(log));
    rows.append({u"Cover art"_s, log.coverArt.value_or(u"none"_s)});
    return rows;
}

Rows audioRows(const EncodingLog &log)
{
    if (!log.sourceAudio)
        return {};
    const AudioStreamInfo &audio = *log.sourceAudio;
    Rows rows = {{u"Format"_s, audio.codecDisplayName()}};
    if (audio.bitDepth && *audio.bitDepth >= 1)
        rows.append({u"Bit depth"_s, u"%1-bit"_s.arg(*audio.bitDepth)});
    addIfPresent(rows, u"Sample rate"_s, audio.sampleRateText());
    rows.append({u"Lossless"_s, audio.isLossless() ? u"yes"_s : u"no"_s});
    if (discOf(log) != nullptr) {
        addIfPresent(rows, u"Read with"_s, log.reader);
        rows.append({u"Verify by re-reading"_s, log.verificationEnabled ? u"on"_s : u"off"_s});
    }
    return rows;
}

std::optional<QString> wordFor(std::optional<RipVerification> verification)
{
    switch (verification.value_or(RipVerification::unverified)) {
    case RipVerification::unverified:
        return std::nullopt;
    case RipVerification::secure:
        return u"secure"_s;
    case RipVerification::verified:
        return u"verified"_s;
    case RipVerification::mismatched:
        return u"MISMATCH"_s;
    }
    Q_UNREACHABLE();
}

QString entryLine(const EncodingLog::Entry &entry)
{
    QStringList pieces = {padded(entry.number, 2), entry.title};
    if (entry.startSeconds && entry.endSeconds) {
        pieces << QString(u'[' + positionText(*entry.startSeconds) + u" – "_s +
                          positionText(*entry.endSeconds) + u']');
    }
    if (entry.readDuration)
        pieces << QString(u"read "_s + durationText(*entry.readDuration));
    if (entry.verifyDuration)
        pieces << QString(u"verify "_s + durationText(*entry.verifyDuration));
    if (const auto word = wordFor(entry.verification))
        pieces << *word;
    if (entry.encodeDuration)
        pieces << QString(u"encode "_s + durationText(*entry.encodeDuration));
    if (entry.outputFilename)
        pieces << QString(u"→ "_s + *entry.outputFilename);
    return u"  "_s + pieces.join(u"  "_s);
}

QStringList trackList(const EncodingLog &log)
{
    if (log.entries.isEmpty())
        return {};
    QStringList lines = underlined(discOf(log) != nullptr ? u"Tracks"_s : u"Chapters"_s);
    for (const EncodingLog::Entry &entry : log.entries) {
        lines << entryLine(entry);
        if (entry.error)
            lines << QString(u"      error: "_s + *entry.error);
    }
    return lines << QString();
}

QString filesWrittenText(const EncodingLog &log)
{
    const auto written =
        std::count_if(log.entries.begin(), log.entries.end(),
                      [](const EncodingLog::Entry &entry) { return entry.outputFilename.has_value(); });
    return u"%1 of %2"_s.arg(written).arg(log.entries.size());
}

QString mismatchedNumbers(const EncodingLog &log)
{
    QStringList numbers;
    for (const EncodingLog::Entry &entry : log.entries) {
        if (entry.verification == RipVerification::mismatched)
            numbers << QString::number(entry.number);
    }
    return numbers.join(u", "_s);
}

Rows outcomeRows(const EncodingLog &log)
{
    if (log.wasCancelled)
        return {{u"Outcome"_s, u"cancelled by the user"_s}};
    if (log.failure)
        return {{u"Outcome"_s, u"failed"_s}, {u"Reason"_s, *log.failure}};
    return {{u"Outcome"_s, u"completed"_s}};
}

Rows resultRows(const EncodingLog &log)
{
    Rows rows = {{u"Files written"_s, filesWrittenText(log)}};
    addIfNotEmpty(rows, u"Failed verification"_s, mismatchedNumbers(log));
    if (log.finishedAt) {
        const double seconds =
            static_cast<double>(log.startedAt.msecsTo(*log.finishedAt)) / millisecondsPerSecond;
        rows.append({u"Finished"_s, dateText(*log.finishedAt)});
        rows.append({u"Total time"_s, totalTimeText(seconds)});
    }
    return rows << outcomeRows(log);
}

} // namespace

QString encodingLogText(const EncodingLog &log)
{
    const QStringList lines =
        heading(log) + section(u"Source"_s, sourceRows(log)) + section(u"Metadata"_s, metadataRows(log)) +
        section(u"Audio"_s, audioRows(log)) + trackList(log) + section(u"Result"_s, resultRows(log));
    return lines.join(u'\n') + u'\n';
}

} // namespace tonearm
