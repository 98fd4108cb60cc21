// SPDX-License-Identifier: GPL-3.0-or-later
// Whole jobs with a release and a cover, from the search to the files, with the tools that ship with the
// application and services on this machine.
#include "e2e/ShownSheet.h"

#include "app/screens/elements/ArtworkWell.h"
#include "helpers/Await.h"
#include "helpers/Contents.h"
#include "helpers/Printing.h"
#include "helpers/ReleasePages.h"
#include "helpers/Sources.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QLabel>
#include <QMenu>
#include <QRandomGenerator>
#include <QTest>

namespace tonearm {

using namespace Qt::StringLiterals;
using namespace test;

namespace {

const QList<ChapterMark> marks = {{0, 1, u"One"_s}, {1, 2, u"Two"_s}};

struct ReleaseJobTest : testing::Test
{
    ReleaseJobTest() { surroundings.findTools(); }

    // Noise, so that it is as large a file as its size in pixels says.
    QString picture(const QString &name, int side = 60)
    {
        QImage image(side, side, QImage::Format_RGB32);
        QRandomGenerator random(7);
        for (int y = 0; y < side; ++y)
            for (int x = 0; x < side; ++x)
                image.setPixel(x, y, random.generate());
        EXPECT_TRUE(image.save(surroundings.path(name)));
        return surroundings.path(name);
    }

    void chooseByDrop(const QString &source)
    {
        ASSERT_TRUE(QDir().mkpath(surroundings.outputPath()));
        EXPECT_TRUE(drop(window.find(u"Input file drop area"_s), {QUrl::fromLocalFile(source)}));
        EXPECT_TRUE(drop(window.find(u"Output folder drop area"_s), {surroundings.url(u"out"_s)}));
        window.waitFor(u"Song title for chapter 2"_s);
    }

    // Searches by what is known, and takes the first release.
    void searchAndChoose()
    {
        window.fillIn(u"Artist"_s, u"artist"_s);
        window.fillIn(u"Album Title"_s, u"album"_s);
        press(Qt::Key_Return);
        ShownSheet sheet(window);
        EXPECT_TRUE(sheet.shows<QLabel>(u"1 match for artist — album"_s));
        press(Qt::Key_Return);
        ASSERT_TRUE(eventually([this] { return !ShownSheet::isOpen(window); }));
        window.waitUntilUndisturbed();
    }

    // The entry of the well's menu below "Choose…".
    void download()
    {
        window.find<ArtworkWell>(u"Cover art drop area"_s).setFocus();
        press(Qt::Key_Space);
        auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        ASSERT_TRUE(menu);
        QTest::keyClick(menu, Qt::Key_Down);
        QTest::keyClick(menu, Qt::Key_Down);
        QTest::keyClick(menu, Qt::Key_Return);
        ASSERT_TRUE(eventually([this] { return model.coverArt.value().has_value(); }));
    }

    void dropCover(const QString &path)
    {
        EXPECT_TRUE(drop(window.find(u"Cover art drop area"_s), {QUrl::fromLocalFile(path)}));
        ASSERT_TRUE(eventually([this] { return model.coverArt.value().has_value(); }));
    }

    void encode()
    {
        click(window.button(u"Encode to FLAC"_s));
        ASSERT_NO_FATAL_FAILURE(surroundings.waitForJobEnd());
        ASSERT_TRUE(model.completion.value()) << model.statusText().toStdString();
        ASSERT_EQ(model.encodedFiles.value().size(), marks.size());
    }

    QString encoded(int index) { return model.encodedFiles.value()[index].toLocalFile(); }

    // That every file holds these bytes as its one picture, as the front cover.
    void expectPicture(const QByteArray &bytes, const QString &mimeType)
    {
        for (int index = 0; index < marks.size(); ++index) {
            EXPECT_EQ(outputOf(u"metaflac"_s, {u"--export-picture-to=-"_s, encoded(index)}), bytes);
            const QStringList lines =
                QString::fromUtf8(
                    outputOf(u"metaflac"_s, {u"--list"_s, u"--block-type=PICTURE"_s, encoded(index)}))
                    .split(u'\n');
            EXPECT_EQ(lines.filter(u"METADATA block"_s).size(), 1);
            for (const QString &line :
                 {u"  type: 3 (Cover (front))"_s, QString(u"  MIME type: "_s + mimeType),
                  u"  description: Album cover"_s, u"  width: 60"_s, u"  height: 60"_s})
                EXPECT_TRUE(lines.contains(line)) << line.toStdString();
        }
    }

    ReleasePages pages;
    ModelFixture surroundings{{.addresses = ModelFixture::servicesAt(pages.origin())}};
    AppModel &model = surroundings.model();
    ShownWindow window{model};
};

struct Road
{
    const char *name;
    QStringList codec;
    int sampleRate;
    MetadataSource service;
    QString pictureType;
};

struct WholeReleaseJobTest : testing::WithParamInterface<Road>, ReleaseJobTest
{
    // One service finds the release and has its cover, and the other refuses to answer.
    void setUpServices(const QString &cover)
    {
        const LoopbackResponse picture =
            LoopbackResponse::file("image/" + GetParam().pictureType.toLatin1(), cover);
        ReleaseInfo release = foundRelease(u"7"_s, u"The Album"_s, 2);
        release.year = u"1999-05-12"_s;
        if (GetParam().service == MetadataSource::musicBrainz) {
            pages.findAtMusicBrainz({release});
            pages.addTracks(u"7"_s, {u"Eins"_s, u"Zwei: Ein Lied"_s});
            pages.addCover(u"7"_s, picture);
            pages.server().answer(ReleasePages::discogsSearch, LoopbackResponse::withStatus(429));
        } else {
            pages.findAtDiscogs({release});
            pages.addDetails(release, {u"Eins"_s, u"Zwei: Ein Lied"_s}, pages.origin() + u"/cover"_s);
            pages.server().answer("/cover", picture);
            pages.server().answer(ReleasePages::musicBrainzSearch, LoopbackResponse::withStatus(429));
        }
    }

    static QString failingService()
    {
        return displayName(GetParam().service == MetadataSource::musicBrainz ? MetadataSource::discogs
                                                                             : MetadataSource::musicBrainz);
    }
};

} // namespace

TEST_P(WholeReleaseJobTest, TurnsAFileIntoTheTracksOfARelease)
{
    const QString cover = picture(u"cover."_s + GetParam().pictureType);
    setUpServices(cover);
    const QString source = sharedSource(u"release-"_s + QString::fromLatin1(GetParam().name),
                                        {.audioCodec = GetParam().codec,
                                         .sampleRate = GetParam().sampleRate,
                                         .duration = 2,
                                         .chapters = marks});
    ASSERT_NO_FATAL_FAILURE(chooseByDrop(source));
    ASSERT_NO_FATAL_FAILURE(searchAndChoose());
    EXPECT_TRUE(window.shows<QLabel>(
        failingService() + u" is rate-limiting requests right now. Wait a few seconds and search again."_s));
    EXPECT_EQ(window.titleBox(2).text(), u"Zwei: Ein Lied"_s);
    ASSERT_NO_FATAL_FAILURE(download());
    ASSERT_NO_FATAL_FAILURE(encode());

    EXPECT_EQ(
        tagsWithoutEncoder(encoded(1)),
        (QStringList{u"ALBUMARTIST=The Artist"_s, u"TRACKNUMBER=2"_s, u"TRACKTOTAL=2"_s, u"album=The Album"_s,
                     u"artist=The Artist"_s, u"date=1999"_s, u"title=Zwei: Ein Lied"_s}));
    for (int index = 0; index < marks.size(); ++index)
        EXPECT_EQ(decodedAudio(encoded(index)), bareCut(source, marks[index]));
    expectPicture(readFile(cover), u"image/"_s + GetParam().pictureType);

    EXPECT_EQ(surroundings.temporaryArtwork().size(), 1);
    click(window.button(u"Clear"_s));
    surroundings.settle();
    EXPECT_EQ(surroundings.temporaryArtwork(), QStringList());
}

INSTANTIATE_TEST_SUITE_P(
    Roads, WholeReleaseJobTest,
    testing::Values(Road{"flac", codec::flac16(), 44100, MetadataSource::musicBrainz, u"jpeg"_s},
                    Road{"pcm", codec::pcm24(), 96000, MetadataSource::discogs, u"png"_s},
                    Road{"truehd", codec::trueHD(), 48000, MetadataSource::musicBrainz, u"png"_s}),
    [](const auto &road) { return road.param.name; });

TEST_F(ReleaseJobTest, EmbedsAUsersCoverWhoseNameReadsAsAPattern)
{
    const QString cover = picture(u"50%d.png"_s);
    ASSERT_NO_FATAL_FAILURE(chooseByDrop(plainSource()));
    ASSERT_NO_FATAL_FAILURE(dropCover(cover));
    ASSERT_NO_FATAL_FAILURE(encode());
    expectPicture(readFile(cover), u"image/png"_s);
    EXPECT_EQ(surroundings.temporaryArtwork(), QStringList());
    click(window.button(u"Clear"_s));
    EXPECT_TRUE(QFile::exists(cover));
}

TEST_F(ReleaseJobTest, LeavesNothingOfAShrunkCoverOnceItIsCleared)
{
    surroundings.settings().setArtworkSizeBudgetKilobytes(50);
    pages.addCover(u"7"_s, LoopbackResponse::file("image/png", picture(u"cover.png"_s, 300)));
    pages.findAtMusicBrainz({foundRelease(u"7"_s, u"The Album"_s, 2)});
    pages.addTracks(u"7"_s, {u"Eins"_s, u"Zwei"_s});
    ASSERT_NO_FATAL_FAILURE(chooseByDrop(plainSource()));
    ASSERT_NO_FATAL_FAILURE(searchAndChoose());
    ASSERT_NO_FATAL_FAILURE(download());
    EXPECT_EQ(surroundings.temporaryArtwork().size(), 2) << "what came and its smaller copy";
    ASSERT_NO_FATAL_FAILURE(encode());
    EXPECT_EQ(outputOf(u"metaflac"_s, {u"--export-picture-to=-"_s, encoded(0)}),
              readFile(model.coverArt.value()->url.toLocalFile()));
    click(window.button(u"Clear"_s));
    surroundings.settle();
    EXPECT_EQ(surroundings.temporaryArtwork(), QStringList());
}

} // namespace tonearm
