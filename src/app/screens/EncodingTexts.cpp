// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/EncodingTexts.h"

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
    return completion->summary() + u" to "_s + folder->adjusted(QUrl::StripTrailingSlash).fileName();
}

QString chapterHeading(qsizetype chapterCount)
{
    const QString heading = u"Chapters & Song Titles"_s;
    if (chapterCount == 0)
        return heading;
    if (chapterCount == 1)
        return heading + u" — 1 chapter"_s;
    return heading + u" — %1 chapters"_s.arg(chapterCount);
}

} // namespace tonearm
