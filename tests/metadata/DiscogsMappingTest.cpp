// SPDX-License-Identifier: GPL-3.0-or-later
#include "metadata/DiscogsMapping.h"

#include "helpers/Printing.h"
#include "metadata/Records.h"

#include <gtest/gtest.h>

namespace tonearm::discogs {

using namespace Qt::StringLiterals;
using test::plain;
using test::track;

namespace {

const QString discogsSite = u"https://dg.example"_s;

// A result's members without its braces and its id.
ReleaseInfo summaryOf(const QByteArray &members)
{
    const QByteArray reply = R"({"results": [{"id": 123, )" + members + "}]}";
    return releaseInfo(readResults(JsonNode::parse(reply)).first(), discogsSite);
}

ReleaseInfo detailsOf(const QByteArray &reply)
{
    return plain(releaseInfo(readReleaseDetails(JsonNode::parse(reply)), u"asked"_s, discogsSite));
}

QString addressOf(const QByteArray &uri)
{
    return summaryOf(R"("uri": )" + uri).url;
}

QString barcodeOf(const QByteArray &identifiers)
{
    return detailsOf(R"({"identifiers": )" + identifiers + '}').barcode;
}

QList<TrackInfo> tracksOfList(const QByteArray &tracklist)
{
    return detailsOf(R"({"tracklist": )" + tracklist + '}').tracks;
}

QStringList artworkOf(const QByteArray &images)
{
    return detailsOf(R"({"images": )" + images + '}').artworkURLs;
}

struct Duration
{
    QString text;
    std::optional<qint64> milliseconds;
};

} // namespace

TEST(DiscogsSummary, TakesEveryFieldFromItsPlace)
{
    const ReleaseInfo expected{
        .id = u"123"_s,
        .title = u"Nina - Blue"_s,
        .year = u"1998"_s,
        .label = u"Verve"_s,
        .catalogNumber = u"V-1"_s,
        .country = u"Norway"_s,
        .mediaFormat = u"CD"_s,
        .barcode = u"0 1 2"_s,
        .url = u"https://dg.example/release/123-x"_s,
        .source = MetadataSource::discogs,
    };
    EXPECT_EQ(summaryOf(R"("title": "Nina - Blue", "year": "1998", "country": "Norway", "catno": "V-1",
                           "uri": "/release/123-x", "label": ["Verve", "Other"],
                           "format": ["CD", "Album"], "barcode": ["0 1 2", "3"])"),
              expected);
}

TEST(DiscogsSummary, IsEmptyWhereTheServiceKnowsNothing)
{
    const ReleaseInfo expected{
        .id = u"123"_s, .url = u"https://dg.example/release/123"_s, .source = MetadataSource::discogs};
    EXPECT_EQ(summaryOf(R"("title": null)"), expected);
    EXPECT_EQ(summaryOf(R"("label": [], "format": [], "barcode": [])"), expected);
}

TEST(DiscogsSummary, HasTheYearAsATextHoweverItIsSent)
{
    EXPECT_EQ(summaryOf(R"("year": 1998)").year, u"1998"_s);
    EXPECT_EQ(summaryOf(R"("year": "1998")").year, u"1998"_s);
    EXPECT_EQ(summaryOf(R"("year": 0)").year, u"0"_s);
    EXPECT_EQ(summaryOf(R"("year": null)").year, QString());
}

TEST(DiscogsSummary, PutsTheSiteInFrontOfAPath)
{
    EXPECT_EQ(addressOf(R"("/release/123-x")"), u"https://dg.example/release/123-x"_s);
    EXPECT_EQ(addressOf(R"("https://elsewhere.example/1")"), u"https://elsewhere.example/1"_s);
    EXPECT_EQ(addressOf(R"("release/1")"), u"release/1"_s);
    EXPECT_EQ(addressOf(R"("")"), u"https://dg.example/release/123"_s);
    EXPECT_EQ(addressOf("null"), u"https://dg.example/release/123"_s);
}

TEST(DiscogsDetails, TakeEveryFieldFromItsPlace)
{
    const ReleaseInfo expected{
        .id = u"77"_s,
        .artist = u"Nina (2)"_s,
        .title = u"Blue"_s,
        .year = u"1998"_s,
        .label = u"Verve"_s,
        .catalogNumber = u"V-1"_s,
        .country = u"Norway"_s,
        .packaging = u"Digipak"_s,
        .mediaFormat = u"CD"_s,
        .barcode = u"0123"_s,
        .url = u"https://dg.example/release/77-blue"_s,
        .source = MetadataSource::discogs,
        .tracks = {track(u"1"_s, u"Dawn"_s, 245000)},
        .artworkURLs = {u"https://img.example/1.jpg"_s},
        .trackCount = 1,
    };
    EXPECT_EQ(detailsOf(R"-({"id": 77, "title": "Blue", "artists_sort": "Nina (2)", "year": 1998,
                            "country": "Norway", "uri": "/release/77-blue",
                            "labels": [{"name": "Verve", "catno": "V-1"}, {"name": "Other", "catno": "2"}],
                            "formats": [{"name": "CD", "text": "Digipak"}, {"name": "LP"}],
                            "identifiers": [{"type": "Barcode", "value": "0123"}],
                            "tracklist": [{"position": "1", "title": "Dawn", "duration": "4:05",
                                           "type_": "track"}],
                            "images": [{"type": "primary", "uri": "https://img.example/1.jpg",
                                        "width": 600, "height": 600}]})-"),
              expected);
}

TEST(DiscogsDetails, HaveTheYearAsATextHoweverItIsSent)
{
    EXPECT_EQ(detailsOf(R"({"id": 1, "year": 1998})").year, u"1998"_s);
    EXPECT_EQ(detailsOf(R"({"id": 1, "year": "1998"})").year, u"1998"_s);
    EXPECT_EQ(detailsOf(R"({"id": 1, "year": 0})").year, u"0"_s);
    EXPECT_EQ(detailsOf(R"({"id": 1, "year": null})").year, QString());
}

TEST(DiscogsDetails, AreEmptyWhereTheServiceKnowsNothing)
{
    const ReleaseInfo expected{.id = u"asked"_s,
                               .url = u"https://dg.example/release/asked"_s,
                               .source = MetadataSource::discogs,
                               .trackCount = 0};
    EXPECT_EQ(detailsOf("{}"), expected);
    EXPECT_EQ(detailsOf(R"({"id": null, "labels": [], "formats": [{}], "identifiers": [{}], "images": [{}],
                            "tracklist": [{}]})"),
              expected);
}

TEST(DiscogsDetails, TakeTheFirstBarcode)
{
    EXPECT_EQ(barcodeOf(R"([{"type": "ASIN", "value": "B0"}, {"type": "Barcode", "value": "1"},
                            {"type": "Barcode", "value": "2"}])"),
              u"1"_s);
    EXPECT_EQ(barcodeOf(R"([{"value": "0"}, {"type": "BARCODE", "value": "1"}])"), u"1"_s);
    EXPECT_EQ(barcodeOf(R"([{"type": "barcode"}, {"type": "Barcode", "value": "2"}])"), QString());
    EXPECT_EQ(barcodeOf(R"-([{"type": "Barcode (scanned)", "value": "1"}])-"), QString());
}

TEST(DiscogsTracks, LeaveOutHeadingsAndIndexRows)
{
    EXPECT_EQ(tracksOfList(R"([{"title": "Side A", "type_": "heading"},
                           {"position": "A1", "title": "One", "type_": "track"},
                           {"position": "1-01", "title": "Two", "type_": "Track"},
                           {"position": "3", "title": "Three", "type_": "TRACK"},
                           {"title": "Suite", "type_": "index"},
                           {"position": "4", "title": "Four"},
                           {"position": "5", "title": "Five", "type_": null},
                           {"title": "Six", "type_": "track"},
                           {"title": "Seven", "type_": ""},
                           {"title": "Eight", "type_": " track"}])"),
              (QList{track(u"A1"_s, u"One"_s), track(u"1-01"_s, u"Two"_s), track(u"3"_s, u"Three"_s),
                     track(u"4"_s, u"Four"_s), track(u"5"_s, u"Five"_s), track({}, u"Six"_s)}));
}

TEST(DiscogsTracks, LeaveOutRowsWithoutTitles)
{
    EXPECT_EQ(tracksOfList(R"([{"position": "1", "type_": "track"}, {"position": "2", "title": null},
                           {"position": "3", "title": ""}, {"position": "4", "title": " "}])"),
              (QList{track(u"4"_s, u" "_s)}));
}

TEST(DiscogsTracks, HaveTheirLengths)
{
    EXPECT_EQ(tracksOfList(R"([{"title": "A", "duration": "4:05"}, {"title": "B", "duration": ""},
                           {"title": "C", "duration": null}, {"title": "D"}])"),
              (QList{track({}, u"A"_s, 245000), track({}, u"B"_s), track({}, u"C"_s), track({}, u"D"_s)}));
}

TEST(DiscogsTracks, HaveIdentitiesOfTheirOwn)
{
    Track row;
    row.title = u"Same"_s;
    const QList<TrackInfo> tracks = trackInfos({row, row});
    ASSERT_EQ(tracks.size(), 2);
    EXPECT_FALSE(tracks.first().id.isNull());
    EXPECT_NE(tracks.first().id, tracks.last().id);
}

TEST(DiscogsDuration, ReadsHoursMinutesAndSeconds)
{
    for (const auto &[text, milliseconds] : {
             Duration{u"4:05"_s, 245000},
             Duration{u"1:02:03"_s, 3723000},
             Duration{u"245"_s, 245000},
             Duration{u" 4:05\t"_s, 245000},
             Duration{u"0"_s, 0},
             Duration{u"0:00"_s, 0},
             Duration{u"90:00"_s, 5400000},
             Duration{u"0:75"_s, 75000},
             Duration{u"004:005"_s, 245000},
         })
        EXPECT_EQ(durationMilliseconds(text), milliseconds) << text.toStdString();
}

TEST(DiscogsDuration, KnowsNoOtherForms)
{
    for (const QString &text : {QString(),
                                u" "_s,
                                u"4:"_s,
                                u":05"_s,
                                u":"_s,
                                u"4::05"_s,
                                u"a:b"_s,
                                u"1:2:3:4"_s,
                                u"-4:05"_s,
                                u"+4:05"_s,
                                u"4:+5"_s,
                                u"4: 05"_s,
                                u"4 :05"_s,
                                u"4:05\n"_s,
                                u"4.5"_s,
                                u"4:05.5"_s,
                                u"(4:05)"_s,
                                u"4'05"_s,
                                u"٤:٠٥"_s,
                                u"9223372036854775808"_s,
                                u"9223372036854775807"_s,
                                u"9223372036854775807:00"_s,
                                u"153722867280912930:59"_s})
        EXPECT_EQ(durationMilliseconds(text), std::nullopt) << text.toStdString();
}

TEST(DiscogsArtwork, PutsPrimaryImagesFirst)
{
    EXPECT_EQ(artworkOf(R"([{"type": "secondary", "uri": "a"}, {"type": "Primary", "uri": "b"},
                            {"type": "secondary", "uri": "c"}])"),
              (QStringList{u"b"_s, u"a"_s, u"c"_s}));
    EXPECT_EQ(artworkOf(R"([{"uri": "a"}, {"type": "PRIMARY", "uri": "b"}, {"type": null, "uri": "c"},
                            {"type": "primary", "uri": "d"}])"),
              (QStringList{u"b"_s, u"d"_s, u"a"_s, u"c"_s}));
}

TEST(DiscogsArtwork, LeavesOutImagesWithoutAddress)
{
    EXPECT_EQ(artworkOf(R"([{"type": "primary", "uri": ""}, {"type": "primary"},
                            {"type": "primary", "uri": null}, {"type": "secondary", "uri": "c"}])"),
              (QStringList{u"c"_s}));
    EXPECT_EQ(artworkOf("[]"), QStringList());
}

} // namespace tonearm::discogs
