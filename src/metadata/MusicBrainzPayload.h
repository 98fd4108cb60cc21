// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "support/Json.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <optional>

namespace tonearm::musicBrainz {

// MusicBrainz's replies as they stand, each read whole before any of it is used: a value of the wrong
// type is a JsonError also where it wouldn't have been needed. What may be absent and means the same
// when empty is empty.

struct ArtistCredit
{
    std::optional<QString> name;
    std::optional<QString> artistName;
    QString joinPhrase;

    bool operator==(const ArtistCredit &) const = default;
};

struct LabelInfo
{
    QString catalogNumber;
    QString labelName;

    bool operator==(const LabelInfo &) const = default;
};

struct Track
{
    std::optional<QString> number;
    std::optional<qint64> position;
    std::optional<QString> title;
    /// In milliseconds, as the other one.
    std::optional<qint64> length;
    std::optional<QString> recordingTitle;
    std::optional<qint64> recordingLength;

    bool operator==(const Track &) const = default;
};

struct Medium
{
    QString format;
    std::optional<qint64> trackCount;
    std::optional<qint64> position;
    QStringList discIDs;
    QList<Track> tracks;

    bool operator==(const Medium &) const = default;
};

struct Release
{
    QString id;
    QString title;
    QString date;
    QString country;
    QString barcode;
    QString packaging;
    QList<ArtistCredit> artistCredits;
    QList<LabelInfo> labels;
    QList<Medium> media;
    std::optional<qint64> trackCount;

    bool operator==(const Release &) const = default;
};

/// The releases of a search's or a disc's reply.
QList<Release> readReleases(const JsonNode &reply);

/// The tracks of a release's reply: those of all media in one list.
QList<Track> readTracks(const JsonNode &reply);

} // namespace tonearm::musicBrainz
