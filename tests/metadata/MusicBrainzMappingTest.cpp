// SPDX-License-Identifier: GPL-3.0-or-later
#include "metadata/MusicBrainzMapping.h"

#include "helpers/Printing.h"
#include "metadata/Records.h"

#include <gtest/gtest.h>

namespace tonearm::musicBrainz {

using namespace Qt::StringLiterals;
using test::plain;
using test::track;

namespace {

const QString musicBrainzSite = u"https://mb.example"_s;

// A release's members without its braces and its id.
ReleaseInfo releaseOf(const QByteArray &members, const std::optional<QString> &discID = {})
{
    const QByteArray reply = R"({"releases": [{"id": "r1", )" + members + "}]}";
    return plain(releaseInfo(readReleases(JsonNode::parse(reply)).first(), discID, musicBrainzSite));
}

QString artistOf(const QByteArray &credits)
{
    return releaseOf(R"("artist-credit": )" + credits).artist;
}

QString yearOf(const QByteArray &date)
{
    return releaseOf(R"("date": ")" + date + '"').year;
}

std::optional<qint64> trackCountOf(const QByteArray &members, const std::optional<QString> &discID = {})
{
    return releaseOf(members, discID).trackCount;
}

QList<TrackInfo> tracksOfMedia(const QByteArray &media)
{
    return plain(trackInfos(readTracks(JsonNode::parse(R"({"media": )" + media + '}'))));
}

TrackInfo trackOf(const QByteArray &members)
{
    return tracksOfMedia(R"([{"tracks": [{)" + members + "}]}]").value(0);
}

// A set of two discs, the second of which is "disc two".
const QByteArray twoDiscs = R"("track-count": 5, "media": [
    {"position": 1, "format": "CD", "track-count": 3, "discs": [{"id": "disc one"}],
     "tracks": [{"number": "1", "title": "Dawn", "length": 61000}]},
    {"position": 2, "format": "DVD", "track-count": 2, "discs": [{"id": "other"}, {"id": "disc two"}],
     "tracks": [{"number": "1", "title": "Dusk", "length": 62000}, {"number": "2", "title": "Night"}]}])";

} // namespace

TEST(MusicBrainzQuery, JoinsArtistAndAlbum)
{
    EXPECT_EQ(searchQuery(u"AC/DC"_s, u"Back \"in\" Black"_s),
              uR"(artist:"AC/DC" AND release:"Back \"in\" Black")"_s);
}

TEST(MusicBrainzQuery, LeavesOutABlankText)
{
    EXPECT_EQ(searchQuery(u" \tNina\n"_s, u" \n"_s), u"artist:\"Nina\""_s);
    EXPECT_EQ(searchQuery({}, u" Blue "_s), u"release:\"Blue\""_s);
    EXPECT_EQ(searchQuery(u"\t"_s, u" "_s), std::nullopt);
    EXPECT_EQ(searchQuery({}, {}), std::nullopt);
}

TEST(MusicBrainzQuery, EscapesBackslashesBeforeQuotes)
{
    EXPECT_EQ(searchQuery(uR"(a\"b)"_s, {}), uR"(artist:"a\\\"b")"_s);
    EXPECT_EQ(searchQuery(uR"(\)"_s, {}), uR"(artist:"\\")"_s);
}

TEST(MusicBrainzQuery, EscapesNothingElse)
{
    EXPECT_EQ(searchQuery({}, u"+-&&||!(){}[]^~*?:/ AND"_s), u"release:\"+-&&||!(){}[]^~*?:/ AND\""_s);
}

TEST(MusicBrainzRelease, TakesEveryFieldFromItsPlace)
{
    const ReleaseInfo expected{
        .id = u"r1"_s,
        .artist = u"Nina & Friends"_s,
        .title = u"Blue"_s,
        .year = u"1997"_s,
        .label = u"Verve"_s,
        .catalogNumber = u"V-1"_s,
        .country = u"NO"_s,
        .packaging = u"Jewel Case"_s,
        .mediaFormat = u"CD"_s,
        .barcode = u"0123"_s,
        .url = u"https://mb.example/release/r1"_s,
        .source = MetadataSource::musicBrainz,
        .trackCount = 12,
        .discCount = 1,
    };
    EXPECT_EQ(releaseOf(R"("title": "Blue", "date": "1997-05-12", "country": "NO", "barcode": "0123",
                           "packaging": "Jewel Case", "track-count": 12,
                           "artist-credit": [{"name": "Nina", "joinphrase": " & "}, {"name": "Friends"}],
                           "label-info": [{"catalog-number": "V-1", "label": {"name": "Verve"}},
                                          {"catalog-number": "V-2", "label": {"name": "Other"}}],
                           "media": [{"format": "CD", "track-count": 11}])"),
              expected);
}

TEST(MusicBrainzRelease, IsEmptyWhereTheServiceKnowsNothing)
{
    const ReleaseInfo expected{.id = u"r1"_s, .url = u"https://mb.example/release/r1"_s};
    EXPECT_EQ(releaseOf(R"("title": null)"), expected);
    EXPECT_EQ(releaseOf(R"("media": [], "label-info": [], "artist-credit": [])"), expected);
    EXPECT_EQ(releaseOf(R"("label-info": [{}, {"catalog-number": "2", "label": {"name": "Second"}}])"),
              expected);
    EXPECT_EQ(releaseOf(R"("label-info": [{"catalog-number": null, "label": null}])"), expected);
}

TEST(MusicBrainzRelease, JoinsTheCreditsOfArtists)
{
    EXPECT_EQ(artistOf(R"([{"name": "A", "joinphrase": " & "}, {"name": "B", "joinphrase": ""}])"),
              u"A & B"_s);
    EXPECT_EQ(artistOf(R"([{"name": "A", "joinphrase": " feat. "}, {"name": "B"}])"), u"A feat. B"_s);
    EXPECT_EQ(artistOf(R"([{"artist": {"name": "Known"}}, {"joinphrase": "!"}])"), u"Known!"_s);
    EXPECT_EQ(artistOf(R"([{"name": "Credited", "artist": {"name": "Known"}}])"), u"Credited"_s);
    EXPECT_EQ(artistOf(R"([{"name": "", "artist": {"name": "Known"}}])"), QString());
}

TEST(MusicBrainzRelease, TrimsTheArtistOfBlanks)
{
    EXPECT_EQ(artistOf(R"([{"name": " A", "joinphrase": " & "}])"), u"A &"_s);
    EXPECT_EQ(artistOf(R"([{"name": "\u3000\tA\n"}])"), u"A\n"_s);
}

TEST(MusicBrainzRelease, KeepsTextsOfEveryScript)
{
    const ReleaseInfo release = releaseOf(
        R"("title": "أحبك", "artist-credit": [{"name": "椎名", "joinphrase": "・"}, {"name": "林檎"}])");
    EXPECT_EQ(release.title, u"أحبك"_s);
    EXPECT_EQ(release.artist, u"椎名・林檎"_s);
}

TEST(MusicBrainzRelease, TakesTheFirstFourCharactersOfADateForTheYear)
{
    EXPECT_EQ(yearOf("1997-05-12"), u"1997"_s);
    EXPECT_EQ(yearOf("1997-05"), u"1997"_s);
    EXPECT_EQ(yearOf("1997-??"), u"1997"_s);
    EXPECT_EQ(yearOf("97"), u"97"_s);
    EXPECT_EQ(yearOf("????"), u"????"_s);
    EXPECT_EQ(yearOf(R"(????)"
                     "-05-12"),
              u"????"_s);
    EXPECT_EQ(yearOf(""), QString());
    // Characters as a person sees them, not code units.
    EXPECT_EQ(yearOf("e\u0301e\u0301e\u0301e\u0301e\u0301"), u"e\u0301e\u0301e\u0301e\u0301"_s);
}

TEST(MusicBrainzRelease, TakesTheMediumThatHoldsTheDisc)
{
    const ReleaseInfo release = releaseOf(twoDiscs, u"disc two"_s);
    EXPECT_EQ(release.matchedDiscPosition, 2);
    EXPECT_EQ(release.discCount, 2);
    EXPECT_EQ(release.trackCount, 2);
    EXPECT_EQ(release.mediaFormat, u"CD"_s);
    EXPECT_EQ(release.tracks, (QList{track(u"1"_s, u"Dusk"_s, 62000), track(u"2"_s, u"Night"_s)}));
}

TEST(MusicBrainzRelease, HasNoTracksWithoutTheDisc)
{
    for (const std::optional<QString> &discID :
         {std::optional<QString>(), std::optional(u"unknown"_s), std::optional(QString())}) {
        const ReleaseInfo release = releaseOf(twoDiscs, discID);
        EXPECT_EQ(release.tracks, QList<TrackInfo>());
        EXPECT_EQ(release.matchedDiscPosition, std::nullopt);
        EXPECT_EQ(release.discCount, 2);
        EXPECT_EQ(release.trackCount, 5);
    }
}

TEST(MusicBrainzRelease, MatchesNoMediumWhoseDiscsAreNotTold)
{
    const QByteArray media = R"("media": [{"position": 1, "tracks": [{"title": "Dawn"}]},
                                          {"position": 2, "discs": [{}, {"id": null}]}])";
    for (const QString &discID : {u"disc"_s, u"DISC ONE"_s}) {
        const ReleaseInfo release = releaseOf(media, discID);
        EXPECT_EQ(release.tracks, QList<TrackInfo>());
        EXPECT_EQ(release.matchedDiscPosition, std::nullopt);
    }
}

TEST(MusicBrainzRelease, TakesTheFirstOfSeveralMediaWithTheSameDisc)
{
    const ReleaseInfo release = releaseOf(R"("media": [
        {"position": 1, "discs": []},
        {"position": 2, "discs": [{"id": "same"}], "tracks": [{"title": "First"}]},
        {"position": 3, "discs": [{"id": "same"}], "tracks": [{"title": "Second"}]}])",
                                          u"same"_s);
    EXPECT_EQ(release.matchedDiscPosition, 2);
    EXPECT_EQ(release.tracks, (QList{track({}, u"First"_s)}));
}

TEST(MusicBrainzRelease, FindsTheDiscInASetOfThirty)
{
    QByteArrayList media;
    for (int number = 1; number <= 30; ++number) {
        const QByteArray text = QByteArray::number(number);
        media.append(R"({"position": )" + text + R"(, "track-count": 1, "discs": [{"id": "d)" + text +
                     R"("}], "tracks": [{"number": "1", "title": "On )" + text + R"("}]})");
    }
    const ReleaseInfo release = releaseOf(R"("media": [)" + media.join(',') + ']', u"d29"_s);
    EXPECT_EQ(release.matchedDiscPosition, 29);
    EXPECT_EQ(release.discCount, 30);
    EXPECT_EQ(release.trackCount, 1);
    EXPECT_EQ(release.tracks, (QList{track(u"1"_s, u"On 29"_s)}));
    EXPECT_EQ(trackCountOf(R"("media": [)" + media.join(',') + ']'), 30);
}

TEST(MusicBrainzRelease, MatchesAMediumWithoutPositionOrTracks)
{
    const ReleaseInfo release = releaseOf(R"("media": [{"discs": [{"id": "d"}]}])", u"d"_s);
    EXPECT_EQ(release.tracks, QList<TrackInfo>());
    EXPECT_EQ(release.matchedDiscPosition, std::nullopt);
    EXPECT_EQ(release.discCount, 1);
    EXPECT_EQ(release.trackCount, std::nullopt);
}

TEST(MusicBrainzRelease, CountsItsTracks)
{
    const QByteArray media = R"("media": [{"track-count": 3}, {}, {"track-count": 4, "discs": [{"id": "d"}]},
                                          {"discs": [{"id": "uncounted"}]}])";
    EXPECT_EQ(trackCountOf(R"("track-count": 9, )" + media, u"d"_s), 4);
    EXPECT_EQ(trackCountOf(R"("track-count": 9, )" + media, u"uncounted"_s), 9);
    EXPECT_EQ(trackCountOf(R"("track-count": 9, )" + media), 9);
    EXPECT_EQ(trackCountOf(R"("track-count": 0, )" + media), 0);
    EXPECT_EQ(trackCountOf(media), 7);
    EXPECT_EQ(trackCountOf(media, u"uncounted"_s), 7);
    EXPECT_EQ(trackCountOf(R"("media": [{}, {}])"), std::nullopt);
    EXPECT_EQ(trackCountOf(R"("media": [])"), std::nullopt);
}

TEST(MusicBrainzRelease, KnowsNoTrackCountThatFitsNoInteger)
{
    EXPECT_EQ(trackCountOf(R"("media": [{"track-count": 9223372036854775807}, {"track-count": 1}])"),
              std::nullopt);
}

TEST(MusicBrainzTrack, PrefersItsNumberToItsPosition)
{
    EXPECT_EQ(trackOf(R"("number": "A2", "position": 5)").position, u"A2"_s);
    EXPECT_EQ(trackOf(R"("position": 3)").position, u"3"_s);
    EXPECT_EQ(trackOf(R"("number": "", "position": 3)").position, QString());
    // A pregap track.
    EXPECT_EQ(trackOf(R"("number": "0", "position": 0)").position, u"0"_s);
    EXPECT_EQ(trackOf(R"("title": "Untold")").position, QString());
}

TEST(MusicBrainzTrack, TakesTitleAndLengthOfTheRecordingWhereItHasNone)
{
    const QByteArray recording = R"("recording": {"title": "Recorded", "length": 9000})";
    EXPECT_EQ(trackOf(R"("title": "Own", "length": 1000, )" + recording), track({}, u"Own"_s, 1000));
    EXPECT_EQ(trackOf(R"("title": null, "length": null, )" + recording), track({}, u"Recorded"_s, 9000));
    EXPECT_EQ(trackOf(R"("title": "", "length": 0, )" + recording), track({}, QString(), 0));
    EXPECT_EQ(trackOf(R"("recording": {})"), track({}, {}));
    EXPECT_EQ(trackOf(R"("recording": null)"), track({}, {}));
}

TEST(MusicBrainzTrack, StandsInOneListForAllMedia)
{
    EXPECT_EQ(
        tracksOfMedia(R"([{"tracks": [{"title": "One"}, {"title": "[data track]"}]}, {}, {"tracks": null},
                           {"tracks": []}, {"tracks": [{"title": "Three"}]}])"),
        (QList{track({}, u"One"_s), track({}, u"[data track]"_s), track({}, u"Three"_s)}));
    EXPECT_EQ(tracksOfMedia("[]"), QList<TrackInfo>());
    EXPECT_EQ(tracksOfMedia("null"), QList<TrackInfo>());
}

TEST(MusicBrainzTrack, HasAnIdentityOfItsOwn)
{
    const QList<TrackInfo> tracks = trackInfos({Track(), Track()});
    ASSERT_EQ(tracks.size(), 2);
    EXPECT_FALSE(tracks.first().id.isNull());
    EXPECT_NE(tracks.first().id, tracks.last().id);
}

} // namespace tonearm::musicBrainz
