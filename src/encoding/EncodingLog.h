// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "workflow/records/AudioStreamInfo.h"
#include "workflow/records/RipVerification.h"

#include <QDateTime>
#include <QList>
#include <QString>
#include <QUrl>

#include <chrono>
#include <optional>
#include <variant>

namespace tonearm {

/// What happened in one encoding job. The job fills it in as it goes; its text form is for people.
struct EncodingLog
{
    /// Measured time; any std::chrono duration converts to it.
    using Duration = std::chrono::duration<double>;

    struct FileSource
    {
        QUrl url;

        bool operator==(const FileSource &) const = default;
    };

    struct DiscSource
    {
        /// Where the disc is mounted, or its name, as it is to be shown.
        QString volume = {};
        QString discID = {};
        qint64 trackCount = 0;

        bool operator==(const DiscSource &) const = default;
    };

    using Source = std::variant<FileSource, DiscSource>;

    /// One chapter or track. It counts as written if it has an output file.
    struct Entry
    {
        /// From 1.
        qint64 number = 0;
        QString title = {};
        std::optional<double> startSeconds = {};
        std::optional<double> endSeconds = {};
        std::optional<Duration> readDuration = {};
        std::optional<Duration> verifyDuration = {};
        std::optional<RipVerification> verification = {};
        std::optional<Duration> encodeDuration = {};
        std::optional<QString> outputFilename = {};
        std::optional<QString> error = {};

        bool operator==(const Entry &) const = default;
    };

    QString appVersion = {};
    /// Dates may stand in any time zone; they are shown in the machine's.
    QDateTime startedAt = {};
    Source source = {};
    /// Where the job writes at first.
    std::optional<QUrl> outputFolder = {};
    /// Where the finished files end up, if that's elsewhere.
    std::optional<QUrl> destinationFolder = {};
    /// The tools' versions in one line each.
    std::optional<QString> ffmpegVersion = {};
    std::optional<QString> cdParanoiaVersion = {};
    QString artist = {};
    QString album = {};
    QString year = {};
    QString genre = {};
    QString discNumber = {};
    QString discTotal = {};
    /// A description of the cover image.
    std::optional<QString> coverArt = {};
    std::optional<AudioStreamInfo> sourceAudio = {};
    bool verificationEnabled = false;
    /// The name of the method that read the disc.
    std::optional<QString> reader = {};
    QList<Entry> entries = {};
    std::optional<QDateTime> finishedAt = {};
    /// The reason for a failed job.
    std::optional<QString> failure = {};
    bool wasCancelled = false;

    /// The whole log. English in every locale.
    QString text() const;

    /// The name of the log's file, made of the start and the album; at most 255 bytes.
    QString fileName() const;

    bool operator==(const EncodingLog &) const = default;
};

/// The folder in which a log belongs: beside the files if that folder is there. Blocks.
QString logDirectory(const EncodingLog &log);

/// Writes the log into a folder, which is made if it isn't there, and returns the file's place. The file
/// is there as a whole or not at all; an older one of the same name is replaced.
///
/// Throws std::system_error that names the path. Blocks.
QUrl writeEncodingLog(const EncodingLog &log, const QString &directory);

} // namespace tonearm
