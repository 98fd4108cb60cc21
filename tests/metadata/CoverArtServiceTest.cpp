// SPDX-License-Identifier: GPL-3.0-or-later
#include "metadata/CoverArtService.h"

#include "artwork/CoverArtError.h"
#include "helpers/Await.h"
#include "helpers/Printing.h"
#include "metadata/Records.h"
#include "metadata/ServicesFixture.h"
#include "support/Cancellation.h"

#include <QBuffer>
#include <QImage>

namespace tonearm {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using test::await;
using test::awaitError;
using test::discogsSource;
using test::LoopbackResponse;
using test::musicBrainzSource;

namespace {

class CoverArtServiceTest : public test::ServicesFixture
{
protected:
    QCoro::Task<DownloadedCoverArt> fetchFront() { return coverArt.fetchForMusicBrainz(u"r"_s, noStop); }

    QCoro::Task<DownloadedCoverArt> fetchFirst(const QStringList &artworkURLs)
    {
        const ReleaseInfo release{.id = u"5"_s, .source = discogsSource, .artworkURLs = artworkURLs};
        return coverArt.fetchForDiscogs(release, noStop);
    }

    // A picture's address at Discogs.
    QString picture(const QString &target) const { return discogsServer.origin() + target; }
};

LoopbackResponse jpeg(const QByteArray &data)
{
    return LoopbackResponse::bytes("image/jpeg", data);
}

QByteArray pictureBytes(const char *format)
{
    QImage image(40, 30, QImage::Format_RGB32);
    image.fill(Qt::darkCyan);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    EXPECT_TRUE(image.save(&buffer, format));
    return bytes;
}

LoopbackResponse withoutType(const QByteArray &data)
{
    LoopbackResponse response;
    response.body = data;
    return response;
}

const QByteArray front = "/release/r/front";

} // namespace

TEST_F(CoverArtServiceTest, FetchesTheFrontThatTheArchiveNames)
{
    archiveServer.answer(front, jpeg("picture"));
    EXPECT_EQ(
        await(fetchFront()),
        (DownloadedCoverArt{.data = "picture", .fileExtension = u"jpg"_s, .source = musicBrainzSource}));
    EXPECT_EQ(archiveServer.requests().size(), 1);
}

TEST_F(CoverArtServiceTest, FollowsTheArchiveToThePicture)
{
    archiveServer.answer(front, LoopbackResponse::redirect(307, "/elsewhere.png"));
    archiveServer.answer("/elsewhere.png", LoopbackResponse::bytes("IMAGE/PNG", "picture"));
    EXPECT_EQ(await(fetchFront()).fileExtension, u"png"_s);
}

TEST_F(CoverArtServiceTest, PutsTheReleaseIntoThePath)
{
    archiveServer.answer("/release/a%2Fb/front", jpeg("picture"));
    EXPECT_EQ(await(coverArt.fetchForMusicBrainz(u"a/b"_s, noStop)).data, "picture");
    EXPECT_EQ(awaitError<MetadataServiceError>(coverArt.fetchForMusicBrainz({}, noStop)),
              MetadataServiceError::invalidQuery({}));
}

TEST_F(CoverArtServiceTest, FetchesTheFirstPictureAtDiscogs)
{
    discogsServer.answer("/a%2Fb", jpeg("first"));
    EXPECT_EQ(await(fetchFirst({picture(u"/a%2Fb?x=1+2&y=%20"_s), picture(u"/second"_s)})),
              (DownloadedCoverArt{.data = "first", .fileExtension = u"jpg"_s, .source = discogsSource}));
    ASSERT_EQ(discogsServer.requests().size(), 1);
    EXPECT_EQ(discogsServer.requests().first().target, "/a%2Fb?x=1+2&y=%20");
}

TEST_F(CoverArtServiceTest, NamesTheProgramAndItsMakersToBothServices)
{
    archiveServer.answer(front, jpeg("front"));
    discogsServer.answer("/first", jpeg("first"));
    await(fetchFront());
    await(fetchFirst({picture(u"/first"_s)}));
    for (const auto &request : archiveServer.requests() + discogsServer.requests()) {
        EXPECT_EQ(request.method, "GET");
        EXPECT_EQ(request.header("User-Agent"), fullUserAgent());
        EXPECT_EQ(request.header("Accept"), "image/*");
    }
    EXPECT_EQ(archiveServer.requests().size() + discogsServer.requests().size(), 2);
}

TEST_F(CoverArtServiceTest, AsksNothingWhereDiscogsNamesNoPicture)
{
    for (const QStringList &named :
         {QStringList(), QStringList{QString(), picture(u"/second"_s)}, QStringList{u"first.jpg"_s},
          QStringList{u"http://[first"_s}, QStringList{u"https://"_s}, QStringList{u"http:/first"_s},
          QStringList{u"file:///dev/null"_s}, QStringList{u"data:image/png;base64,AAAA"_s},
          QStringList{picture(u"/with a blank"_s)}, QStringList{picture(u"/100%"_s)}}) {
        EXPECT_EQ(awaitError<CoverArtError>(fetchFirst(named)),
                  CoverArtError::noArtworkAvailable(discogsSource))
            << named.join(u' ').toStdString();
    }
    EXPECT_EQ(discogsServer.requests().size(), 0);
}

TEST_F(CoverArtServiceTest, TellsThatAServiceHasNoPicture)
{
    EXPECT_EQ(awaitError<CoverArtError>(fetchFront()), CoverArtError::noArtworkAvailable(musicBrainzSource));
    EXPECT_EQ(awaitError<CoverArtError>(fetchFirst({picture(u"/first"_s), picture(u"/second"_s)})),
              CoverArtError::noArtworkAvailable(discogsSource));
    EXPECT_EQ(discogsServer.requests().size(), 1);
}

TEST_F(CoverArtServiceTest, TakesAPictureWithoutBytesForNone)
{
    archiveServer.answer(front, jpeg({}));
    EXPECT_EQ(awaitError<CoverArtError>(fetchFront()), CoverArtError::noArtworkAvailable(musicBrainzSource));
}

TEST_F(CoverArtServiceTest, RefusesWhatIsNoPicture)
{
    archiveServer.answer(front, LoopbackResponse::html("<p>Later</p>"));
    EXPECT_EQ(awaitError<CoverArtError>(fetchFront()), CoverArtError::unsupportedImageType(u"text/html"_s));
    discogsServer.answer("/first", LoopbackResponse::bytes("Image/WebP", {}));
    EXPECT_EQ(awaitError<CoverArtError>(fetchFirst({picture(u"/first"_s)})),
              CoverArtError::unsupportedImageType(u"image/webp"_s));
}

TEST_F(CoverArtServiceTest, LooksAtTheBytesOfAPictureWithoutType)
{
    archiveServer.answerInTurn(front, {withoutType(pictureBytes("jpeg")), withoutType(pictureBytes("png")),
                                       withoutType("GIF89a..."), withoutType({})});
    EXPECT_EQ(await(fetchFront()).fileExtension, u"jpg"_s);
    EXPECT_EQ(await(fetchFront()).fileExtension, u"png"_s);
    const auto unknown = CoverArtError::unsupportedImageType(u"an unrecognised format"_s);
    EXPECT_EQ(awaitError<CoverArtError>(fetchFront()), unknown);
    EXPECT_EQ(awaitError<CoverArtError>(fetchFront()), unknown);
}

TEST_F(CoverArtServiceTest, PassesOtherFailuresOn)
{
    archiveServer.answerInTurn(front, {LoopbackResponse::withStatus(503), LoopbackResponse::withStatus(410),
                                       LoopbackResponse::withStatus(403)});
    EXPECT_EQ(awaitError<MetadataServiceError>(fetchFront()),
              MetadataServiceError::rateLimited(musicBrainzSource));
    EXPECT_EQ(awaitError<MetadataServiceError>(fetchFront()),
              MetadataServiceError::httpFailure(musicBrainzSource, 410));
    EXPECT_EQ(awaitError<MetadataServiceError>(fetchFront()),
              MetadataServiceError::unauthorized(musicBrainzSource));
    discogsServer.answer("/first", LoopbackResponse::hangUp());
    const auto failure = awaitError<MetadataServiceError>(fetchFirst({picture(u"/first"_s)}));
    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->kind, MetadataServiceError::Kind::networkFailure);
    EXPECT_EQ(failure->source, discogsSource);
}

TEST_F(CoverArtServiceTest, RefusesAPictureThatIsCutOff)
{
    archiveServer.answer(front, jpeg("a picture of which the end is missing").cutAfter(9));
    const auto failure = awaitError<MetadataServiceError>(fetchFront());
    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->kind, MetadataServiceError::Kind::networkFailure);
}

TEST_F(CoverArtServiceTest, RefusesAPictureOfUnknownLengthThatIsCutOff)
{
    for (const char *format : {"jpeg", "png"}) {
        const QByteArray whole = pictureBytes(format);
        for (const qsizetype sent : {whole.size() / 2, whole.size() - 1}) {
            archiveServer.answer(front, jpeg(whole).chunked().cutAfter(sent));
            EXPECT_EQ(awaitError<MetadataServiceError>(fetchFront()),
                      MetadataServiceError::networkFailure(musicBrainzSource, u"Connection closed."_s))
                << format << ' ' << sent;
        }
        archiveServer.answer(front, jpeg(whole).chunked());
        EXPECT_EQ(await(fetchFront()).data, whole) << format;
    }
}

TEST_F(CoverArtServiceTest, TakesAPictureWithoutItsEndMarkWhenAllOfItCame)
{
    const QByteArray picture = pictureBytes("jpeg").chopped(2);
    archiveServer.answer(front, jpeg(picture));
    EXPECT_EQ(await(fetchFront()).data, picture);
    archiveServer.answer(front, jpeg(picture).gzipped().chunked());
    EXPECT_EQ(await(fetchFront()).data, picture);
}

TEST_F(CoverArtServiceTest, RefusesAPictureThatIsTooLarge)
{
    archiveServer.answer(front, jpeg("\xff\xd8\xff\xd9" + QByteArray(maximumPictureBytes - 3, 'x')));
    EXPECT_EQ(awaitError<MetadataServiceError>(fetchFront()),
              MetadataServiceError::networkFailure(musicBrainzSource, u"The reply is larger than 64 MB."_s));
}

TEST_F(CoverArtServiceTest, DownloadsSideBySide)
{
    archiveServer.answer(front, LoopbackResponse::silence());
    archiveServer.answer("/release/fast/front", jpeg("fast"));
    auto waiting = coverArt.fetchForMusicBrainz(u"r"_s, stopSource.get_token());
    EXPECT_EQ(await(coverArt.fetchForMusicBrainz(u"fast"_s, noStop)).data, "fast");
    EXPECT_FALSE(waiting.isReady());
    stopSource.request_stop();
    EXPECT_TRUE(awaitError<CancellationError>(std::move(waiting)));
    EXPECT_TRUE(test::eventually([&] { return archiveServer.openConnectionCount() <= 1; }));
}

} // namespace tonearm
