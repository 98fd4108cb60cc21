// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "support/Json.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <optional>

namespace tonearm::discogs {

// Discogs's replies as they stand, each read whole before any of it is used: a value of the wrong type
// is a JsonError also where it wouldn't have been needed. What may be absent and means the same when
// empty is empty.

/// A release as a search tells of it.
struct Result
{
    qint64 id = 0;
    /// The artist's name and the title in one.
    QString title;
    QString year;
    QString country;
    QString catalogNumber;
    /// The release's page, with or without the web site's address.
    QString uri;
    QStringList labels;
    QStringList formats;
    QStringList barcodes;

    bool operator==(const Result &) const = default;
};

struct Label
{
    QString name;
    QString catalogNumber;

    bool operator==(const Label &) const = default;
};

struct Format
{
    QString name;
    QString text;

    bool operator==(const Format &) const = default;
};

struct Identifier
{
    QString type;
    QString value;

    bool operator==(const Identifier &) const = default;
};

/// A row of a tracklist, which may be a heading too.
struct Track
{
    QString position;
    QString title;
    /// As the service writes it, for example "4:05".
    QString duration;
    std::optional<QString> type;

    bool operator==(const Track &) const = default;
};

struct Image
{
    QString type;
    QString uri;
    std::optional<qint64> width;
    std::optional<qint64> height;

    bool operator==(const Image &) const = default;
};

/// A release in full.
struct ReleaseDetails
{
    std::optional<qint64> id;
    QString title;
    QString artist;
    QString year;
    QString country;
    QString uri;
    QList<Label> labels;
    QList<Format> formats;
    QList<Identifier> identifiers;
    QList<Track> tracklist;
    QList<Image> images;

    bool operator==(const ReleaseDetails &) const = default;
};

/// The results of a search's reply.
QList<Result> readResults(const JsonNode &reply);

/// A release's reply.
ReleaseDetails readReleaseDetails(const JsonNode &reply);

} // namespace tonearm::discogs
