// SPDX-License-Identifier: GPL-3.0-or-later
// The whole road of an audio CD through the real application: from the drive to the files and back.
#include "e2e/discs/DiscRoad.h"
#include "e2e/discs/ShownDisc.h"
#include "helpers/Contents.h"
#include "helpers/Media.h"
#include "helpers/Printing.h"

#include <gmock/gmock.h>

#include <QMessageBox>

namespace tonearm {

using namespace Qt::StringLiterals;
using namespace test;

namespace {

struct DiscRoadTest : DiscRoad
{
    AppModel &model() { return m_app->model(); }

    // Has the disc's tracks on file, under a release's titles, each read twice.
    void ripAsRelease(const DiscImage &disc)
    {
        insert(disc);
        ASSERT_NO_FATAL_FAILURE(takeOffer(u"Blue"_s));
        EXPECT_EQ(m_pages.askedPaths(), QList<QByteArray>{"/ws/2/discid/" + discIDOf(disc).toUtf8()});
        ASSERT_NO_FATAL_FAILURE(takeRelease());
        EXPECT_EQ(model().progressMessage.value(), u"Mapped 3 titles onto the CD tracks."_s);
        EXPECT_EQ(find<QLineEdit>(u"Song title for chapter 2"_s).text(), u"Zwei"_s);
        EXPECT_EQ(find<QLineEdit>(u"Disc"_s).text(), u"2"_s);
        EXPECT_EQ(find<QLineEdit>(u"Number of discs"_s).text(), u"3"_s);
        ASSERT_NO_FATAL_FAILURE(runJob());
        expectTracks(disc);
        EXPECT_EQ(allNamed<>(m_app->mainWindow(), u"Verified by re-read"_s).size(), 3);
        EXPECT_EQ(namesIn(path(u"albums"_s)).filter(u".flac"_s),
                  (QStringList{u"01-Eins.flac"_s, u"02-Zwei.flac"_s, u"03-Drei.flac"_s}));
        EXPECT_THAT(flacTags(path(u"albums/02-Zwei.flac"_s)),
                    testing::IsSupersetOf({u"title=Zwei"_s, u"album=The Album"_s, u"artist=The Artist"_s,
                                           u"date=1999"_s, u"DISCNUMBER=2"_s, u"DISCTOTAL=3"_s}));
        EXPECT_TRUE(log().contains(discIDOf(disc))) << log().toStdString();
    }

    DiscImage blue()
    {
        DiscImage disc = image(u"Blue"_s, {.tracks = {{.sectors = 200},
                                                      {.sectors = 90, .title = "A Title"},
                                                      {.sectors = 151, .pregap = 10}}});
        addRelease(discIDOf(disc), {u"Eins"_s, u"Zwei"_s, u"Drei"_s});
        return disc;
    }

    void giveBack()
    {
        click(find<QPushButton>(u"Eject"_s));
        ASSERT_TRUE(eventually([this] { return !m_drives.ejected().isEmpty() && volumes().isEmpty(); }));
        EXPECT_FALSE(model().hasSource());
        EXPECT_TRUE(model().detectedDiscs.value().isEmpty());
    }
};

} // namespace

TEST_F(DiscRoadTest, LeadsThroughThePlainReaderAndOnToADiscThatIsPulledOut)
{
    ASSERT_NO_FATAL_FAILURE(start(false));
    ASSERT_NO_FATAL_FAILURE(ripAsRelease(blue()));
    EXPECT_TRUE(log().contains(u"CDDA filesystem"_s)) << log().toStdString();
    EXPECT_TRUE(leftRips().isEmpty());
    ASSERT_NO_FATAL_FAILURE(giveBack());

    // Nobody knows this one. Its first track has twenty minutes, so that it is being read when it goes.
    const DiscImage next(path(u"discs"_s), {.tracks = {{}, {.silence = 20 * 60 * 75}}, .title = "Hejira"},
                         u"next"_s);
    insert(next);
    ASSERT_NO_FATAL_FAILURE(takeOffer(u"Hejira"_s));
    ASSERT_NO_FATAL_FAILURE(closeSheet());
    ASSERT_NO_FATAL_FAILURE(startJob());
    ASSERT_TRUE(eventually([this] { return model().encodingProgress.value() > 0; }));
    EXPECT_EQ(model().progressMessage.value(), u"Reading track 1 of 2: Track 1"_s);
    m_drives.pullOut(u"drive"_s);
    ASSERT_TRUE(eventually([this] { return !model().encodingTask.value(); }, 30000));
    EXPECT_EQ(model().progressMessage.value(), u"Ripping cancelled."_s);
    EXPECT_EQ(model().currentState.value(), WorkflowState(WorkflowState::Kind::idle));
    EXPECT_FALSE(model().loadedDisc.value());
    auto *alert = m_app->mainWindow().findChild<QMessageBox *>();
    ASSERT_TRUE(alert && eventually([&] { return alert->isVisible(); }));
    EXPECT_EQ(alert->text(), u"Disc Ejected"_s);
    EXPECT_EQ(alert->informativeText(),
              u"The audio CD was removed, so there's nothing left to rip. Reinsert it to carry on."_s);
    EXPECT_EQ(namesIn(path(u"albums"_s)).filter(u".flac"_s).size(), 3);
    EXPECT_TRUE(leftRips().isEmpty());
    EXPECT_TRUE(log().contains(u"cancelled"_s)) << log().toStdString();
    EXPECT_TRUE(log().contains(discIDOf(next)));
    EXPECT_TRUE(eventually([this] { return volumes().isEmpty(); }));
}

TEST_F(DiscRoadTest, LeadsThroughTheSecureReader)
{
    ASSERT_NO_FATAL_FAILURE(start(true));
    ASSERT_NO_FATAL_FAILURE(ripAsRelease(blue()));
    EXPECT_FALSE(log().contains(u"Secure reading failed"_s)) << log().toStdString();
    EXPECT_FALSE(log().contains(u"CDDA filesystem"_s));
    EXPECT_TRUE(leftRips().isEmpty());
    ASSERT_NO_FATAL_FAILURE(giveBack());
}

} // namespace tonearm
