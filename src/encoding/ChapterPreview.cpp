// SPDX-License-Identifier: GPL-3.0-or-later
#include "encoding/ChapterPreview.h"

#include "encoding/FFmpegArguments.h"

#include <algorithm>

namespace tonearm {

using namespace Qt::StringLiterals;

double previewDuration(const ChapterInfo &chapter, double limit)
{
    return std::min(std::max(0.0, chapter.endSeconds - chapter.startSeconds), limit);
}

QStringList previewArguments(const ChapterInfo &chapter, const QUrl &source, double duration,
                             const QString &output)
{
    return {u"-hide_banner"_s,
            u"-v"_s,
            u"error"_s,
            u"-accurate_seek"_s,
            u"-ss"_s,
            secondsText(chapter.startSeconds),
            u"-i"_s,
            source.toLocalFile(),
            u"-t"_s,
            secondsText(duration),
            u"-map"_s,
            u"0:a:0"_s,
            u"-vn"_s,
            u"-c:a"_s,
            u"pcm_s16le"_s,
            u"-ar"_s,
            u"44100"_s,
            u"-ac"_s,
            u"2"_s,
            u"-y"_s,
            output};
}

} // namespace tonearm
