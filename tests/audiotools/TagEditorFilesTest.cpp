// SPDX-License-Identifier: GPL-3.0-or-later
#include "audiotools/AudioTools.h"
#include "audiotools/ToolComparison.h"
#include "helpers/Contents.h"
#include "helpers/Media.h"

#include <string>
#include <tuple>

namespace tonearm::test {

using namespace Qt::StringLiterals;

namespace {

/// A kind of file that the tag editor opens.
struct EditorFile
{
    /// A test name: letters and digits.
    const char *name;
    const char *extension;
    /// ffmpeg's options to make one.
    const char *encoding;
    /// The options that keep its kind of tags.
    const char *rewriting;
};

void PrintTo(const EditorFile &file, std::ostream *out)
{
    *out << file.name;
}

/// A file and the type of the cover in it, "" for none.
class EditorFiles : public ToolComparison,
                    public testing::WithParamInterface<std::tuple<EditorFile, std::string>>
{
protected:
    void SetUp() override
    {
        ToolComparison::SetUp();
        if (IsSkipped() || HasFatalFailure())
            return;
        makeCovers({u"jpg"_s, u"png"_s, u"bmp"_s, u"gif"_s, u"tiff"_s});
        makeMedia(path(u"sound.wav"_s), {.duration = 1.5});
        make(u"song."_s + extension(), QStringList{u"-i"_s, path(u"sound.wav"_s)} + coverArguments() +
                                           tagArguments() + words(QString::fromLatin1(file().encoding)));
    }

    void makeCovers(const QStringList &types) const
    {
        QStringList arguments = words(u"-f lavfi -i testsrc=s=64x48"_s);
        for (const QString &type : types)
            arguments << u"-frames:v"_s << u"1"_s << path(u"cover."_s + type);
        make(u"cover.jpeg"_s, arguments + words(u"-frames:v 1"_s));
    }

    static EditorFile file() { return std::get<0>(GetParam()); }

    static QString extension() { return QString::fromLatin1(file().extension); }

    static QString coverType() { return QString::fromStdString(std::get<1>(GetParam())); }

    QString song() const { return path(u"song."_s + extension()); }

    QStringList coverArguments() const
    {
        if (coverType().isEmpty())
            return {};
        return QStringList{u"-i"_s, path(u"cover."_s + coverType())} +
               words(u"-map 0:a -map 1:v -c:v copy -disposition:v:0 attached_pic"_s);
    }

    static QStringList tagArguments()
    {
        QStringList arguments;
        for (const QString &pair :
             {u"title=Song"_s, u"artist=Anna"_s, u"album=Songs"_s, u"track=3/9"_s, u"disc=1/2"_s,
              u"date=1999-03-04"_s, u"genre=Folk"_s, u"MUSICBRAINZ_TRACKID=3f7a"_s})
            arguments << u"-metadata"_s << pair;
        return arguments;
    }

    /// Rewrites the song with new tags and expects that it reads the same with both tools.
    void expectSameRewrite(const QStringList &streams) const
    {
        QStringList arguments = words(u"-hide_banner -v error -y -i"_s) + QStringList{song()} + streams +
                                words(QString::fromLatin1(file().rewriting));
        for (const QString &pair : {u"title=Sång 2"_s, u"artist="_s, u"album_artist="_s, u"track=5/12"_s})
            arguments << u"-metadata"_s << pair;
        const TwoFiles songs = expectSameFile(arguments, u"song."_s + extension());
        const QByteArray tags = expectSameProbe(tagProbeOptions(), songs.shipped);
        EXPECT_TRUE(tags.contains("5/12")) << tags.toStdString();
    }

    QStringList replacedCover(const QString &type) const
    {
        return QStringList{u"-i"_s, path(u"cover."_s + type)} +
               words(u"-map 0:a -map 1:v -c copy -disposition:v:0 attached_pic"_s) +
               QStringList{u"-metadata:s:v"_s, u"title=Album cover"_s, u"-metadata:s:v"_s,
                           u"comment=Cover (front)"_s};
    }
};

class EditorFilesWithCover : public EditorFiles
{
};

} // namespace

TEST_P(EditorFiles, AreReadAsByTheSystem)
{
    const QByteArray tags = expectSameProbe(tagProbeOptions(), song());
    EXPECT_TRUE(tags.contains("\"Song\"")) << tags.toStdString();
    EXPECT_EQ(tags.contains("\"attached_pic\": 1"), !coverType().isEmpty());
    EXPECT_EQ(tags.contains("\"width\": 64"), !coverType().isEmpty());
}

TEST_P(EditorFiles, AreRewrittenAsByTheSystem)
{
    expectSameRewrite(words(u"-map 0 -c copy"_s));
    expectSameRewrite(words(u"-map 0 -c copy -t 1"_s));
}

TEST_P(EditorFiles, LoseOrChangeTheirCoverAsByTheSystem)
{
    expectSameRewrite(words(u"-map 0:a -vn -c copy"_s));
    expectSameRewrite(replacedCover(u"jpg"_s));
    expectSameRewrite(replacedCover(u"png"_s));
}

TEST_P(EditorFilesWithCover, GiveOutTheirCoverUnchanged)
{
    const QStringList arguments =
        words(u"-hide_banner -v error -y -i"_s) + QStringList{song()} + words(u"-map 0:v:0 -c copy"_s);
    const TwoFiles covers = expectSameFile(arguments, u"song-embedded.jpg"_s);
    EXPECT_TRUE(readFile(covers.shipped) == readFile(path(u"cover."_s + coverType())));
}

namespace {

constexpr EditorFile mp3{"Mp3WithId3v23", "mp3", "-c:a libmp3lame -id3v2_version 3", "-id3v2_version 3"};

const auto files = testing::Values(
    mp3, EditorFile{"Flac", "flac", "-c:a flac", ""},
    EditorFile{"Mp3WithId3v24", "mp3", "-c:a libmp3lame -id3v2_version 4", "-id3v2_version 4"},
    EditorFile{"Aac", "m4a", "-c:a aac", ""}, EditorFile{"Alac", "m4a", "-c:a alac", ""});

std::string nameOf(const testing::TestParamInfo<std::tuple<EditorFile, std::string>> &test)
{
    return std::string(std::get<0>(test.param).name) + std::get<1>(test.param);
}

} // namespace

INSTANTIATE_TEST_SUITE_P(Formats, EditorFiles, testing::Combine(files, testing::Values("", "jpg", "png")),
                         nameOf);
INSTANTIATE_TEST_SUITE_P(Formats, EditorFilesWithCover,
                         testing::Combine(files, testing::Values("jpg", "png")), nameOf);

// ID3 knows more types of pictures than the application itself puts in.
INSTANTIATE_TEST_SUITE_P(OldCovers, EditorFiles,
                         testing::Combine(testing::Values(mp3), testing::Values("bmp", "gif", "tiff")),
                         nameOf);
INSTANTIATE_TEST_SUITE_P(OldCovers, EditorFilesWithCover,
                         testing::Combine(testing::Values(mp3), testing::Values("bmp", "gif", "tiff")),
                         nameOf);

} // namespace tonearm::test
