// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/releases/ReleaseTexts.h"

#include "support/Text.h"
#include "workflow/AppModel.h"

#include <QStringList>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

bool hasOneTrackPerChapter(const ReleaseInfo &release, qsizetype chapterCount)
{
    const std::optional<qint64> tracks =
        release.tracks.isEmpty() ? release.trackCount : release.tracks.size();
    return chapterCount > 0 && tracks == chapterCount;
}

// As against a search by artist and album.
bool isLookupOfDisc(const AppModel &model)
{
    return model.isDiscSource() && model.isDiscLookup.value();
}

// The artist and the album as they are typed.
QString queryOf(const AppModel &model)
{
    QStringList parts = {trimmed(model.artist.value()), trimmed(model.albumTitle.value())};
    parts.removeAll(QString());
    return parts.join(u" — "_s);
}

} // namespace

QString releaseRowDetail(const ReleaseInfo &release, qsizetype chapterCount)
{
    QStringList parts;
    if (release.matchedDiscPosition && release.discCount && *release.discCount >= 2)
        parts.append(u"disc %1 of %2"_s.arg(*release.matchedDiscPosition).arg(*release.discCount));
    if (hasOneTrackPerChapter(release, chapterCount))
        parts.append(u"✓ one track per chapter"_s);
    parts.append(release.detailLine());
    parts.removeAll(QString());
    return parts.join(u" · "_s);
}

QString releaseSheetAdvice(qsizetype chapterCount)
{
    if (chapterCount == 0)
        return {};
    return u"Your file has %1 %2. A release with the same number of tracks maps cleanly."_s.arg(
        QString::number(chapterCount), chapterCount == 1 ? u"chapter"_s : u"chapters"_s);
}

QString releaseSheetStatus(const AppModel &model)
{
    if (model.isLoadingReleases.value())
        return isLookupOfDisc(model) ? u"Matching this disc against MusicBrainz…"_s : u"Searching…"_s;
    const qsizetype count = model.searchResults.value().size();
    const QString matches = count == 1 ? u"1 match"_s : u"%1 matches"_s.arg(count);
    const QString query = queryOf(model);
    return query.isEmpty() ? matches : QString(matches + u" for "_s + query);
}

QString releaseListPlaceholder(const AppModel &model)
{
    if (!model.searchResults.value().isEmpty())
        return {};
    const bool isDisc = isLookupOfDisc(model);
    if (model.isLoadingReleases.value())
        return isDisc ? u"Looking up this disc in MusicBrainz…"_s : QString();
    if (isDisc)
        return u"This disc isn't in MusicBrainz. Close this and search by artist and album, or type the titles in yourself."_s;
    return u"No releases matched. Try a different artist or album."_s;
}

} // namespace tonearm
