// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/mainwindow/EncodingTexts.h"

#include "support/PathText.h"
#include "support/Text.h"
#include "workflow/AppModel.h"

namespace tonearm {

using namespace Qt::StringLiterals;

QString encodingHint(const AppModel &model)
{
    if (!model.isFFmpegInstalled())
        return u"Install ffmpeg to enable encoding."_s;
    if (!model.inputFileURL.value())
        return u"Choose an .mkv file to begin."_s;
    if (model.chapters.value().isEmpty())
        return u"This file has no chapters to encode."_s;
    if (!model.outputFolderURL.value())
        return u"Choose an output folder."_s;
    const qsizetype untitled = model.untitledChapters().size();
    if (untitled == 1)
        return u"One chapter still needs a song title."_s;
    return untitled > 1 ? u"%1 chapters still need song titles."_s.arg(untitled) : QString();
}

QString encodingSummary(const AppModel &model)
{
    const std::optional<EncodingCompletion> completion = model.completion.value();
    if (!completion)
        return {};
    const std::optional<QUrl> folder = model.lastOutputFolder.value();
    if (!folder)
        return completion->summary();
    return completion->summary() + u" to "_s + lastPathComponent(*folder);
}

VerificationSummary verificationSummary(const AppModel &model)
{
    if (!model.completion.value())
        return {};
    QStringList differing;
    qsizetype verified = 0;
    qsizetype secure = 0;
    const QMap<qint64, RipVerification> tracks = model.trackVerifications.value();
    for (auto track = tracks.begin(); track != tracks.end(); ++track) {
        if (*track == RipVerification::mismatched)
            differing.append(QString::number(track.key() + 1));
        verified += *track == RipVerification::verified ? 1 : 0;
        secure += *track == RipVerification::secure ? 1 : 0;
    }
    if (!differing.isEmpty()) {
        const QString noun = differing.size() == 1 ? u"Track "_s : u"Tracks "_s;
        return {noun + differing.join(u", "_s) +
                    u" read differently the second time — worth checking by ear."_s,
                IconName::warning};
    }
    if (verified > 0)
        return {counted(verified, u"track"_s) + u" verified by re-reading the disc."_s, IconName::seal};
    if (secure > 0)
        return {counted(secure, u"track"_s) + u" read with error correction."_s, IconName::shield};
    return {};
}

QString chapterHeading(qsizetype chapterCount, bool isDisc)
{
    const QString heading = isDisc ? u"Tracks & Song Titles"_s : u"Chapters & Song Titles"_s;
    if (chapterCount == 0)
        return heading;
    return heading + u" — "_s + counted(chapterCount, isDisc ? u"track"_s : u"chapter"_s);
}

} // namespace tonearm
