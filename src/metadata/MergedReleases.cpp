// SPDX-License-Identifier: GPL-3.0-or-later
#include "metadata/MergedReleases.h"

#include "support/Numbers.h"
#include "support/Text.h"

#include <QSet>

#include <algorithm>
#include <limits>
#include <tuple>
#include <utility>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

QString identityKey(const ReleaseInfo &release)
{
    return displayName(release.source) + u':' + release.id;
}

QString contentKey(const ReleaseInfo &release)
{
    const QStringList parts{displayName(release.source), folded(release.artist), folded(release.title),
                            release.year, release.catalogNumber.toCaseFolded()};
    return parts.join(u'|');
}

// Whether the key is new; it isn't from then on.
bool insertNew(QSet<QString> &keys, const QString &key)
{
    const qsizetype before = keys.size();
    keys.insert(key);
    return keys.size() > before;
}

// A release and what its place depends on, smaller values first.
struct Ranked
{
    std::tuple<bool, qint64, MetadataSource> rank;
    ReleaseInfo release;
};

Ranked ranked(ReleaseInfo release, const QString &wantedTitle)
{
    const bool matches = !wantedTitle.isEmpty() && trimmed(folded(release.title)) == wantedTitle;
    const qint64 year = parseInteger(release.year).value_or(std::numeric_limits<qint64>::max());
    return {.rank = {!matches, year, release.source}, .release = std::move(release)};
}

void fill(QString &text, const QString &substitute)
{
    if (text.isEmpty())
        text = substitute;
}

} // namespace

QList<ReleaseInfo> withoutRepetitions(const QList<ReleaseInfo> &releases)
{
    QSet<QString> identities;
    QSet<QString> contents;
    QList<ReleaseInfo> result;
    for (const ReleaseInfo &release : releases) {
        if (insertNew(identities, identityKey(release)) && insertNew(contents, contentKey(release)))
            result.append(release);
    }
    return result;
}

QList<ReleaseInfo> sortedForAlbum(QList<ReleaseInfo> releases, const QString &album)
{
    const QString wantedTitle = trimmed(folded(album));
    QList<Ranked> entries;
    entries.reserve(releases.size());
    for (ReleaseInfo &release : releases)
        entries.append(ranked(std::move(release), wantedTitle));
    std::stable_sort(entries.begin(), entries.end(),
                     [](const Ranked &first, const Ranked &second) { return first.rank < second.rank; });
    QList<ReleaseInfo> result;
    result.reserve(entries.size());
    for (Ranked &entry : entries)
        result.append(std::move(entry.release));
    return result;
}

ReleaseInfo filledFromSummary(ReleaseInfo details, const ReleaseInfo &summary)
{
    fill(details.id, summary.id);
    fill(details.title, summary.title);
    fill(details.year, summary.year);
    fill(details.mediaFormat, summary.mediaFormat);
    fill(details.country, summary.country);
    return details;
}

} // namespace tonearm
