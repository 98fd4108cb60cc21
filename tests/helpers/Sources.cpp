// SPDX-License-Identifier: GPL-3.0-or-later
#include "helpers/Sources.h"

#include "support/Numbers.h"

#include <gtest/gtest.h>

#include <QFileInfo>
#include <QTemporaryDir>

#include <algorithm>

namespace tonearm::test {

using namespace Qt::StringLiterals;

namespace {

// Lives as long as the program, so that each source is made once.
const QTemporaryDir &sharedFolder()
{
    static const QTemporaryDir folder;
    return folder;
}

} // namespace

QString sharedSource(const QString &name, const MediaRecipe &recipe)
{
    const QString path = sharedFolder().filePath(name + u".mkv"_s);
    if (!QFileInfo::exists(path))
        makeMedia(path, recipe);
    return path;
}

QString plainSource()
{
    return sharedSource(u"plain"_s, {.duration = 2, .chapters = {{0, 1, u"One"_s}, {1, 2, u"Two"_s}}});
}

QByteArray bareCut(const QString &source, const ChapterMark &piece)
{
    constexpr int decimals = 6;
    const QTemporaryDir folder;
    const QString output = folder.filePath(u"bare.flac"_s);
    outputOf(u"ffmpeg"_s, {u"-hide_banner"_s,
                           u"-v"_s,
                           u"error"_s,
                           u"-progress"_s,
                           u"pipe:2"_s,
                           u"-nostats"_s,
                           u"-accurate_seek"_s,
                           u"-ss"_s,
                           fixedPoint(piece.start, decimals),
                           u"-i"_s,
                           source,
                           u"-t"_s,
                           fixedPoint(std::max(0.0, piece.end - piece.start), decimals),
                           u"-map"_s,
                           u"0:a:0"_s,
                           u"-vn"_s,
                           u"-c:a"_s,
                           u"flac"_s,
                           u"-y"_s,
                           output});
    return decodedAudio(output);
}

QStringList tagsWithoutEncoder(const QString &path)
{
    QStringList tags = flacTags(path);
    const auto isEncoder = [](const QString &tag) { return tag.startsWith(u"encoder=Lavf"_s); };
    EXPECT_EQ(std::count_if(tags.begin(), tags.end(), isEncoder), 1) << path.toStdString();
    tags.erase(std::remove_if(tags.begin(), tags.end(), isEncoder), tags.end());
    tags.sort();
    return tags;
}

qint64 sampleCount(const QString &path)
{
    return outputOf(u"metaflac"_s, {u"--show-total-samples"_s, path}).trimmed().toLongLong();
}

} // namespace tonearm::test
