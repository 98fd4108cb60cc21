// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "support/DescribedError.h"

#include <QString>
#include <QUrl>

namespace tonearm {

/// What can go wrong with an audio CD.
class DiscError : public DescribedError
{
public:
    enum class Kind {
        notAnAudioDisc,
        malformedTOC,
        trackUnreadable,
        trackReadFailed,
        noAudioTracks,
        driveUnavailable
    };

    static DiscError notAnAudioDisc(QUrl volume);
    /// `text` tells what is wrong with the table of contents.
    static DiscError malformedTOC(QString text);
    static DiscError trackUnreadable(qint64 number);
    /// `detail` tells how the reading failed.
    static DiscError trackReadFailed(qint64 number, QString detail);
    static DiscError noAudioTracks();
    static DiscError driveUnavailable();

    QString description() const override;
    std::optional<QString> recoverySuggestion() const override;

    Kind kind;
    /// The volume, for notAnAudioDisc only.
    QUrl url;
    /// The track's number, for the two errors of a track only.
    qint64 number;
    /// For malformedTOC and trackReadFailed only.
    QString text;

    bool operator==(const DiscError &other) const;

private:
    DiscError(Kind errorKind, QUrl volume, qint64 trackNumber, QString reason);
};

} // namespace tonearm
