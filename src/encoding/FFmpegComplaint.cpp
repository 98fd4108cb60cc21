// SPDX-License-Identifier: GPL-3.0-or-later
#include "encoding/FFmpegComplaint.h"

#include "support/Text.h"
#include "tools/LineSplitter.h"

#include <QRegularExpression>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

// "out_time=00:00:01.500000" or "speed= 391x".
bool isProgress(const QString &line)
{
    static const QRegularExpression pattern(u"^\\s*\\w+="_s);
    return pattern.match(line).hasMatch();
}

// What ffmpeg puts in place of a line that it has just said.
bool isRepetition(const QString &line)
{
    static const QRegularExpression pattern(u"^\\s*Last message repeated \\d+ times$"_s);
    return pattern.match(line).hasMatch();
}

// "[matroska,webm @ 0x55818c91c1c0] ".
QString withoutSpeaker(QString line)
{
    static const QRegularExpression pattern(u"^(\\s*\\[[^\\]]* @ 0x[0-9a-fA-F]+\\])+"_s);
    return line.remove(pattern);
}

// What reads the cover, which is opened anew for each track. Its pictures may be odd without harm.
bool isAboutPicture(const QString &line)
{
    static const QRegularExpression pattern(u"^\\s*\\[(image2|jpeg_pipe|png_pipe|mjpeg|png) @ 0x"_s);
    return pattern.match(line).hasMatch();
}

} // namespace

std::optional<QString> lastComplaint(QByteArrayView stderrBytes)
{
    std::optional<QString> complaint;
    LineSplitter splitter([&complaint](const QString &line) {
        const QString words = trimmed(withoutSpeaker(line));
        if (!words.isEmpty() && !isProgress(line) && !isRepetition(line) && !isAboutPicture(line))
            complaint = words;
    });
    splitter.add(stderrBytes);
    splitter.finish();
    return complaint;
}

} // namespace tonearm
