// SPDX-License-Identifier: GPL-3.0-or-later
#include "tageditor/SaveReports.h"

#include "support/Text.h"

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

QStringList tagsOf(const QList<RefusedSave> &files)
{
    QStringList tags;
    for (const RefusedSave &file : files)
        tags.append(file.tags);
    tags.removeDuplicates();
    tags.sort();
    return tags;
}

QString savedPiece(qsizetype count)
{
    return count == 0 ? u"No files were saved"_s : QString(u"Saved "_s + counted(count, u"file"_s));
}

} // namespace

QString refusalMessage(const QList<RefusedSave> &refused)
{
    const QStringList tags = tagsOf(refused);
    const QString subject = refused.size() == 1 ? QString(u'"' + refused.first().fileName + u"\" carries"_s)
                                                : u"%1 files carry"_s.arg(refused.size());
    return subject + u" tags this app can read but can't write back. Saving would drop "_s +
           (tags.size() == 1 ? u"this tag"_s : u"these tags"_s) + u":\n\n"_s + tags.join(u'\n') +
           u"\n\nNothing that plays the file uses these — they're identifiers a tagger like MusicBrainz "
           "Picard uses to recognise the release again. Everything else, including the audio, is written "
           "exactly as it would be otherwise."_s;
}

std::optional<QString> droppedTagSummary(const QList<RefusedSave> &reports)
{
    if (reports.isEmpty())
        return std::nullopt;
    return QString(counted(tagsOf(reports).size(), u"tag"_s) + u" dropped from "_s +
                   counted(reports.size(), u"file"_s) + u" that couldn't keep them."_s);
}

QString completionLine(const SaveCounts &counts)
{
    QStringList pieces = {savedPiece(counts.saved)};
    if (counts.heldBack > 0)
        pieces.append(u"%1 held back"_s.arg(counts.heldBack));
    if (counts.dropped > 0)
        pieces.append(u"dropped unwritable tags from %1"_s.arg(counts.dropped));
    if (counts.failed > 0)
        pieces.append(u"%1 couldn't be written"_s.arg(counts.failed));
    if (counts.wasCancelled)
        pieces.append(u"saving was cancelled"_s);
    return pieces.join(u" · "_s) + u'.';
}

} // namespace tonearm
