// SPDX-License-Identifier: GPL-3.0-or-later
#include "disc/VolumeReading.h"

#include "disc/DiscError.h"
#include "disc/PropertyLists.h"
#include "helpers/Await.h"
#include "helpers/Contents.h"
#include "helpers/Printing.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <limits>
#include <system_error>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

const QUrl volumeURL = QUrl::fromLocalFile(u"/media/Album"_s);

// A table of contents in which each track is 1000 frames long, behind each other from 150.
DiscTOC tableOf(const QList<qint64> &numbers)
{
    DiscTOC toc = {
        .firstTrack = numbers.first(), .lastTrack = numbers.last(), .leadoutFrame = 150, .sessionCount = 1};
    for (const qint64 number : numbers) {
        toc.trackStarts[number] = toc.leadoutFrame;
        toc.leadoutFrame += 1000;
    }
    return toc;
}

QStringList namesOf(const QList<qint64> &numbers)
{
    QStringList names;
    for (const qint64 number : numbers)
        names.append(QString::number(number) + u" Audio Track.aiff");
    return names;
}

QList<qint64> numbersOf(const QList<DiscTrack> &tracks)
{
    QList<qint64> numbers;
    for (const DiscTrack &track : tracks)
        numbers.append(track.number);
    return numbers;
}

QList<qint64> lengthsOf(const QList<DiscTrack> &tracks)
{
    QList<qint64> lengths;
    for (const DiscTrack &track : tracks)
        lengths.append(track.frameCount);
    return lengths;
}

QList<qint64> tracksBeforeData(const DiscTOC &toc, const QList<qint64> &numbers)
{
    QList<qint64> found;
    for (const DiscTrack &track : tracksOf(toc, volumeURL, namesOf(numbers))) {
        if (track.precedesDataSession)
            found.append(track.number);
    }
    return found;
}

// A folder with what a volume holds.
class VolumeReadingTest : public testing::Test
{
protected:
    MountedVolume volume() const
    {
        return {.url = QUrl::fromLocalFile(m_folder.path()), .type = u"cddafs"_s, .source = u"/dev/sr0"_s};
    }

    void write(const QString &name, const QByteArray &contents = {}) const
    {
        test::writeFile(m_folder.filePath(name), contents);
    }

    void writeTable() const
    {
        write(u".TOC.plist"_s,
              test::tocOf({test::sessionOf(test::number("Leadout Block", 2150),
                                           {test::trackEntry(1, 150), test::trackEntry(2, 1150)})}));
    }

    std::optional<DiscError> refusal() const
    {
        return test::errorOf<DiscError>([this] { return readDisc(volume()); });
    }

    QTemporaryDir m_folder;
};

} // namespace

TEST(TracksOf, AreTheTracksThatHaveAFileInTheirOrder)
{
    const QList<DiscTrack> tracks =
        tracksOf(tableOf({1, 2, 3}), volumeURL, {u"3 C.aiff"_s, u"1 Audio Track.aiff"_s, u"9 Z.aiff"_s});
    EXPECT_EQ(tracks,
              (QList<DiscTrack>{{.number = 1,
                                 .frameCount = 1000,
                                 .audioFileURL = QUrl::fromLocalFile(u"/media/Album/1 Audio Track.aiff"_s)},
                                {.number = 3,
                                 .frameCount = 1000,
                                 .title = u"C"_s,
                                 .audioFileURL = QUrl::fromLocalFile(u"/media/Album/3 C.aiff"_s)}}));
}

TEST(TracksOf, TakeTheLaterOfTwoFilesForATrack)
{
    const QList<DiscTrack> tracks = tracksOf(tableOf({1}), volumeURL, {u"1 A.aiff"_s, u"01 B.aiff"_s});
    ASSERT_EQ(tracks.size(), 1);
    EXPECT_EQ(tracks.front().title, u"B"_s);
}

TEST(TracksOf, EndTheLastTrackAtTheLeadout)
{
    QList<qint64> twelve;
    for (qint64 number = 1; number <= 12; ++number)
        twelve.append(number);
    DiscTOC toc = tableOf(twelve);
    toc.leadoutFrame += 11;
    EXPECT_EQ(tracksOf(toc, volumeURL, namesOf(twelve)).last().frameCount, 1011);
}

TEST(TracksOf, EndATrackBeforeAGapAtTheLeadout)
{
    EXPECT_EQ(lengthsOf(tracksOf(tableOf({1, 2, 4}), volumeURL, namesOf({1, 2, 4}))),
              (QList<qint64>{1000, 2000, 1000}));
}

TEST(TracksOf, EndATrackAtItsSuccessorEvenIfThatHasNoFile)
{
    EXPECT_EQ(lengthsOf(tracksOf(tableOf({1, 2}), volumeURL, namesOf({1}))), QList<qint64>{1000});
}

TEST(TracksOf, NeverHaveANegativeLength)
{
    DiscTOC toc = tableOf({1, 2});
    toc.trackStarts[2] = 100;
    toc.leadoutFrame = 50;
    EXPECT_EQ(lengthsOf(tracksOf(toc, volumeURL, namesOf({1, 2}))), (QList<qint64>{0, 0}));
    toc.trackStarts[2] = std::numeric_limits<qint64>::min();
    toc.leadoutFrame = std::numeric_limits<qint64>::max();
    EXPECT_EQ(lengthsOf(tracksOf(toc, volumeURL, namesOf({1, 2}))),
              (QList<qint64>{0, std::numeric_limits<qint64>::max()}));
}

TEST(TracksOf, PrecedeADataSessionOnlyInTheLastTrackOfADiscOfTwoSessions)
{
    DiscTOC toc = tableOf({1, 2, 3});
    EXPECT_EQ(tracksBeforeData(toc, {1, 2, 3}), QList<qint64>());
    toc.sessionCount = 2;
    EXPECT_EQ(tracksBeforeData(toc, {1, 2, 3}), QList<qint64>{3});
    toc.lastTrack = 2;
    EXPECT_EQ(tracksBeforeData(toc, {1, 2, 3}), QList<qint64>{2});
}

TEST(RawDevice, IsTheSecondNodeOfADriveThatHasTwo)
{
    EXPECT_EQ(rawDeviceFor(u"/dev/disk4"_s), QUrl::fromLocalFile(u"/dev/rdisk4"_s));
    EXPECT_EQ(rawDeviceFor(u"/dev/disk4s1"_s), QUrl::fromLocalFile(u"/dev/rdisk4s1"_s));
}

TEST(RawDevice, IsAnOpticalDriveItself)
{
    EXPECT_EQ(rawDeviceFor(u"/dev/sr0"_s), QUrl::fromLocalFile(u"/dev/sr0"_s));
    EXPECT_EQ(rawDeviceFor(u"/dev/sr12"_s), QUrl::fromLocalFile(u"/dev/sr12"_s));
}

TEST(RawDevice, IsAnImageItself)
{
    EXPECT_EQ(rawDeviceFor(u"/home/a b/disc #1.cue"_s), QUrl::fromLocalFile(u"/home/a b/disc #1.cue"_s));
    EXPECT_EQ(rawDeviceFor(u"/home/DISC.CUE"_s), QUrl::fromLocalFile(u"/home/DISC.CUE"_s));
}

TEST(RawDevice, IsUnknownForAnythingElse)
{
    EXPECT_EQ(rawDeviceFor({}), std::nullopt);
    EXPECT_EQ(rawDeviceFor(u"cddafs"_s), std::nullopt);
    EXPECT_EQ(rawDeviceFor(u"/dev/sda1"_s), std::nullopt);
    EXPECT_EQ(rawDeviceFor(u"/dev/sr"_s), std::nullopt);
    EXPECT_EQ(rawDeviceFor(u"disc.cue"_s), std::nullopt);
    EXPECT_EQ(rawDeviceFor(u"host:/dev/disk4"_s), std::nullopt);
}

TEST_F(VolumeReadingTest, TellsAllAboutADisc)
{
    writeTable();
    write(u"1 Audio Track.aiff"_s);
    write(u"2 Song.aiff"_s);
    const DiscInfo disc = readDisc(volume());
    EXPECT_EQ(disc.volumeURL, QUrl::fromLocalFile(m_folder.path()));
    EXPECT_EQ(disc.volumeName, QDir(m_folder.path()).dirName());
    EXPECT_EQ(disc.discID, DiscTOC::parse(test::readFile(m_folder.filePath(u".TOC.plist"_s))).discID());
    EXPECT_EQ(numbersOf(disc.tracks), (QList<qint64>{1, 2}));
    EXPECT_EQ(disc.tracks[1].title, u"Song"_s);
    EXPECT_TRUE(QFile::exists(disc.tracks[1].audioFileURL.toLocalFile()));
    EXPECT_EQ(disc.rawDevice, QUrl::fromLocalFile(u"/dev/sr0"_s));
}

TEST_F(VolumeReadingTest, TakesTheLaterOfTwoFilesForATrackInTheOrderOfTheirNames)
{
    writeTable();
    write(u"1 A.aiff"_s);
    write(u"01 B.aiff"_s);
    EXPECT_EQ(readDisc(volume()).tracks.front().title, u"A"_s);
}

TEST_F(VolumeReadingTest, DoesWithoutADeviceThatItDoesntKnow)
{
    writeTable();
    write(u"1 Song.aiff"_s);
    MountedVolume unknown = volume();
    unknown.source = u"cddafs"_s;
    const DiscInfo disc = readDisc(unknown);
    EXPECT_EQ(numbersOf(disc.tracks), QList<qint64>{1});
    EXPECT_EQ(disc.rawDevice, std::nullopt);
}

TEST_F(VolumeReadingTest, LooksAtNoHiddenFilesAndIntoNoFolders)
{
    writeTable();
    write(u"1 Song.aiff"_s);
    write(u".2 Song.aiff"_s);
    ASSERT_TRUE(QDir(m_folder.path()).mkdir(u"more"_s));
    write(u"more/2 Song.aiff"_s);
    EXPECT_EQ(numbersOf(readDisc(volume()).tracks), QList<qint64>{1});
}

TEST_F(VolumeReadingTest, RefusesAVolumeWithoutATable)
{
    write(u"1 Song.aiff"_s);
    EXPECT_EQ(refusal(), DiscError::notAnAudioDisc(volume().url));
}

TEST_F(VolumeReadingTest, PassesOnWhatIsWrongWithTheTable)
{
    write(u".TOC.plist"_s, "nonsense");
    EXPECT_EQ(refusal(), DiscError::malformedTOC(u"It isn't a property list."_s));
}

TEST_F(VolumeReadingTest, PassesOnWhyTheTableCannotBeRead)
{
    ASSERT_TRUE(QDir(m_folder.path()).mkdir(u".TOC.plist"_s));
    const auto error = test::errorOf<std::system_error>([this] { return readDisc(volume()); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->code(), std::errc::is_a_directory);
}

TEST_F(VolumeReadingTest, RefusesADiscNoneOfWhoseTracksHasAFile)
{
    writeTable();
    write(u"3 Song.aiff"_s);
    EXPECT_EQ(refusal(), DiscError::noAudioTracks());
}

} // namespace tonearm
