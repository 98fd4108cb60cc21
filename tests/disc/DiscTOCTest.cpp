// SPDX-License-Identifier: GPL-3.0-or-later
#include "disc/DiscTOC.h"

#include "disc/DiscError.h"
#include "disc/PropertyLists.h"
#include "helpers/Await.h"
#include "helpers/Printing.h"

#include <gtest/gtest.h>

namespace tonearm {

using namespace Qt::StringLiterals;
using test::number;
using test::sessionOf;
using test::tocOf;
using test::trackEntry;

namespace {

std::optional<DiscError> errorOfParsing(const QByteArray &bytes)
{
    return test::errorOf<DiscError>([&] { return DiscTOC::parse(bytes); });
}

// A session of one track that tells itself by its lead-out.
QByteArray oneTrackSession(const QByteArray &numbers, qint64 leadout)
{
    return sessionOf(numbers + number("Leadout Block", leadout), {trackEntry(1, 150)});
}

} // namespace

TEST(DiscTOC, ReadsASessionAsItIsGiven)
{
    const QByteArray session = sessionOf(number("Session Number", 1) + number("First Track", 1) +
                                             number("Last Track", 3) + number("Leadout Block", 40000),
                                         {trackEntry(1, 150), trackEntry(2, 15000), trackEntry(3, 30000)});
    const DiscTOC expected = {.firstTrack = 1,
                              .lastTrack = 3,
                              .leadoutFrame = 40000,
                              .trackStarts = {{1, 150}, {2, 15000}, {3, 30000}},
                              .sessionCount = 1};
    EXPECT_EQ(DiscTOC::parse(tocOf({session})), expected);
    EXPECT_EQ(DiscTOC::parse(test::binaryList(tocOf({session}))), expected);
}

TEST(DiscTOC, IgnoresKeysThatItDoesNotKnow)
{
    const QByteArray entry = "<dict><key>Data</key><true/>" + number("Point", 1) +
                             number("Start Block", 150) + "<key>ISRC</key><string>x</string></dict>";
    const QByteArray session = sessionOf(number("Leadout Block", 9000) + "<key>Extra</key><array/>", {entry});
    const DiscTOC toc = DiscTOC::parse(tocOf({session}));
    EXPECT_EQ(toc.trackStarts, (std::map<qint64, qint64>{{1, 150}}));
}

TEST(DiscTOC, KeepsNoEntryThatIsNoTrack)
{
    const QByteArray session =
        sessionOf(number("Leadout Block", 9000),
                  {trackEntry(0xA0, 1), trackEntry(0xA1, 2), trackEntry(0, 3), trackEntry(-1, 4),
                   trackEntry(100, 5), "<dict>" + number("Point", 7) + "</dict>",
                   "<dict>" + number("Start Block", 7) + "</dict>", trackEntry(99, 6)});
    EXPECT_EQ(DiscTOC::parse(tocOf({session})).trackStarts, (std::map<qint64, qint64>{{99, 6}}));
}

TEST(DiscTOC, TakesTheLaterOfTwoEntriesForATrack)
{
    const QByteArray session =
        sessionOf(number("Leadout Block", 9000), {trackEntry(1, 150), trackEntry(1, 182)});
    EXPECT_EQ(DiscTOC::parse(tocOf({session})).trackStarts, (std::map<qint64, qint64>{{1, 182}}));
}

TEST(DiscTOC, TakesTheSessionWithTheLowestNumber)
{
    EXPECT_EQ(DiscTOC::parse(tocOf({oneTrackSession(number("Session Number", 2), 2000),
                                    oneTrackSession(number("Session Number", 1), 1000)}))
                  .leadoutFrame,
              1000);
}

TEST(DiscTOC, PutsSessionsWithoutANumberBehindNumberedOnes)
{
    EXPECT_EQ(DiscTOC::parse(tocOf({oneTrackSession({}, 1000), oneTrackSession({}, 2000),
                                    oneTrackSession(number("Session Number", 7), 7000)}))
                  .leadoutFrame,
              7000);
    EXPECT_EQ(DiscTOC::parse(tocOf({oneTrackSession({}, 1000), oneTrackSession({}, 2000)})).leadoutFrame,
              1000);
}

TEST(DiscTOC, CountsEverySessionButUsesOne)
{
    const QByteArray audio = sessionOf(number("Session Number", 1) + number("Leadout Block", 20000),
                                       {trackEntry(1, 150), trackEntry(2, 9000)});
    const QByteArray data = sessionOf(number("Session Number", 2) + number("First Track", 3) +
                                          number("Last Track", 3) + number("Leadout Block", 90000),
                                      {trackEntry(3, 31400)});
    const DiscTOC toc = DiscTOC::parse(tocOf({audio, data}));
    EXPECT_EQ(toc, (DiscTOC{.firstTrack = 1,
                            .lastTrack = 2,
                            .leadoutFrame = 20000,
                            .trackStarts = {{1, 150}, {2, 9000}},
                            .sessionCount = 2}));
    DiscTOC alone = DiscTOC::parse(tocOf({audio}));
    EXPECT_EQ(toc.discID(), alone.discID());
    EXPECT_EQ(alone.sessionCount, 1);
}

TEST(DiscTOC, FindsMissingNumbersAmongTheTracks)
{
    const DiscTOC toc = DiscTOC::parse(
        tocOf({sessionOf(number("Leadout Block", 9000), {trackEntry(5, 4000), trackEntry(3, 150)})}));
    EXPECT_EQ(toc.firstTrack, 3);
    EXPECT_EQ(toc.lastTrack, 5);
}

TEST(DiscTOC, BelievesGivenNumbersThatDisagreeWithTheTracks)
{
    const DiscTOC toc = DiscTOC::parse(
        tocOf({sessionOf(number("First Track", 2) + number("Last Track", 9) + number("Leadout Block", 9000),
                         {trackEntry(1, 150)})}));
    EXPECT_EQ(toc.firstTrack, 2);
    EXPECT_EQ(toc.lastTrack, 9);
}

TEST(DiscTOC, RefusesATableWithoutSessions)
{
    const DiscError none = DiscError::malformedTOC(u"No sessions were listed."_s);
    EXPECT_EQ(errorOfParsing(tocOf({})), none);
    EXPECT_EQ(errorOfParsing(test::xmlList({})), none);
}

TEST(DiscTOC, RefusesASessionWithoutTracks)
{
    const QByteArray numbers = number("Session Number", 1) + number("Leadout Block", 9000);
    EXPECT_EQ(errorOfParsing(tocOf({sessionOf(numbers, {})})), DiscError::noAudioTracks());
    EXPECT_EQ(errorOfParsing(tocOf({sessionOf(numbers, {trackEntry(0xA2, 9000)})})),
              DiscError::noAudioTracks());
}

TEST(DiscTOC, RefusesASessionWithoutALeadout)
{
    EXPECT_EQ(errorOfParsing(tocOf({sessionOf({}, {trackEntry(1, 150)})})),
              DiscError::malformedTOC(u"The session has no lead-out position."_s));
}

TEST(DiscTOC, MissesTracksBeforeTheLeadout)
{
    EXPECT_EQ(errorOfParsing(tocOf({sessionOf({}, {})})), DiscError::noAudioTracks());
}

TEST(DiscTOC, RefusesWhatCannotBeDecodedWithTheReadersWords)
{
    EXPECT_EQ(errorOfParsing("no list"), DiscError::malformedTOC(u"It isn't a property list."_s));
    EXPECT_EQ(errorOfParsing(test::xmlList("<key>Sessions</key><string>1</string>")),
              DiscError::malformedTOC(u"The property list doesn't hold an array at Sessions."_s));
}

TEST(DiscTOC, RefusesAWrongTypeInASessionThatIsNotUsed)
{
    const QByteArray broken = sessionOf("<key>Leadout Block</key><string>x</string>", {});
    EXPECT_EQ(errorOfParsing(tocOf({oneTrackSession(number("Session Number", 1), 1000), broken})),
              DiscError::malformedTOC(
                  u"The property list doesn't hold a whole number at Sessions.1.Leadout Block."_s));
}

} // namespace tonearm
