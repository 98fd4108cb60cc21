// SPDX-License-Identifier: GPL-3.0-or-later
// What the sheet of releases shows.
#include "e2e/ShownSheet.h"

#include "app/screens/elements/IconLabel.h"
#include "app/screens/elements/Spinner.h"
#include "helpers/Await.h"
#include "helpers/Printing.h"

#include <QLabel>

namespace tonearm {

using namespace Qt::StringLiterals;
using namespace test;

namespace {

const QString noneMatched = u"No releases matched. Try a different artist or album."_s;

QStringList numbered(int count)
{
    QStringList texts;
    for (int number = 1; number <= count; ++number)
        texts.append(QString::number(number));
    return texts;
}

struct ReleaseResultsTest : WindowTest
{
    // As it is right after a search.
    ShownSheet show(const QList<ReleaseInfo> &releases)
    {
        model.searchResults = releases;
        model.isShowingSearchResults = true;
        return ShownSheet(window);
    }

    // As it is while a search goes on.
    ShownSheet showLoading()
    {
        model.isLoadingReleases = true;
        return show({});
    }

    void loadChapters(int count) { model.chapters = chaptersTitled(numbered(count)); }

    // The details of the one release there is.
    QString detailOf(const ReleaseInfo &release)
    {
        ShownSheet sheet = show({release});
        const QString row = sheet.rows().value(0);
        model.isShowingSearchResults = false;
        EXPECT_TRUE(row.startsWith(release.displayName()));
        return row.sliced(release.displayName().size());
    }
};

QList<Spinner *> spinnersIn(QWidget &widget)
{
    QList<Spinner *> visible;
    for (auto *spinner : widget.findChildren<Spinner *>())
        if (spinner->isVisible())
            visible.append(spinner);
    return visible;
}

} // namespace

TEST_F(ReleaseResultsTest, LieInASheetOverTheWindow)
{
    ShownSheet sheet = show({foundRelease(u"a"_s, u"The Album"_s)});
    EXPECT_EQ(sheet.sheet().windowModality(), Qt::WindowModal);
    EXPECT_EQ(sheet.sheet().parentWidget(), &window.window());
    EXPECT_TRUE(sheet.shows<QLabel>(u"Select a Release"_s));
}

TEST_F(ReleaseResultsTest, HaveASheetOfAFixedSize)
{
    loadChapters(12);
    model.searchNotices = {
        {MetadataSource::discogs,
         u"Discogs is rate-limiting requests right now. Wait a few seconds and search again."_s, false}};
    ShownSheet sheet = show({foundRelease(u"a"_s, u"The Album"_s)});
    EXPECT_EQ(sheet.sheet().size(), QSize(620, 460));
    EXPECT_EQ(sheet.sheet().minimumSize(), sheet.sheet().maximumSize());
    EXPECT_GE(sheet.list().height(), 260);
}

TEST_F(ReleaseResultsTest, LeaveTheListItsRoomWhateverTheNotices)
{
    loadChapters(12);
    const QString words = u"Many words on what went wrong on the way and on what to do about it. "_s;
    model.searchNotices = {{MetadataSource::discogs, words.repeated(4), false},
                           {MetadataSource::musicBrainz, words.repeated(4), true}};
    ShownSheet sheet = show({foundRelease(u"a"_s, u"The Album"_s)});
    EXPECT_GE(sheet.list().height(), 260);
    EXPECT_EQ(sheet.sheet().width(), 620);
    const QList<IconLabel *> notices = sheet.sheet().findChildren<IconLabel *>();
    ASSERT_EQ(notices.size(), 2);
    for (const IconLabel *notice : notices)
        EXPECT_GE(notice->height(), notice->heightForWidth(notice->width()));
    model.searchNotices = QList<MetadataSearchOutcome::Notice>();
    EXPECT_EQ(sheet.sheet().height(), 460);
}

TEST_F(ReleaseResultsTest, ComeWithTheNumberOfChapters)
{
    loadChapters(12);
    ShownSheet sheet = show({foundRelease(u"a"_s, u"The Album"_s)});
    EXPECT_TRUE(sheet.shows<QLabel>(
        u"Your file has 12 chapters. A release with the same number of tracks maps cleanly."_s));
    loadChapters(1);
    EXPECT_TRUE(sheet.shows<QLabel>(
        u"Your file has 1 chapter. A release with the same number of tracks maps cleanly."_s));
    loadChapters(0);
    EXPECT_FALSE(sheet.shows<QLabel>(
        u"Your file has 0 chapters. A release with the same number of tracks maps cleanly."_s));
}

TEST_F(ReleaseResultsTest, HaveASheetThatGrowsWithItsTexts)
{
    loadChapters(12);
    ShownSheet sheet = show({foundRelease(u"a"_s, u"The Album"_s)});
    const QLabel &advice = *named<QLabel>(
        sheet.sheet(),
        u"Your file has 12 chapters. A release with the same number of tracks maps cleanly."_s);
    const auto hasRoom = [&] {
        const QRect needed = advice.fontMetrics().boundingRect(
            QRect(0, 0, advice.width(), 0), advice.wordWrap() ? Qt::TextWordWrap : 0, advice.text());
        return advice.width() >= needed.width() && advice.height() >= needed.height() &&
               sheet.list().height() >= 260;
    };
    EXPECT_TRUE(hasRoom());
    QFont large = sheet.sheet().font();
    large.setPointSizeF(large.pointSizeF() * 1.5);
    sheet.sheet().setFont(large);
    EXPECT_TRUE(eventually(hasRoom));
    EXPECT_EQ(sheet.sheet().width(), 620);

    // So large that the advice costs the list its room.
    large.setPointSizeF(large.pointSizeF() * 2);
    sheet.sheet().setFont(large);
    ASSERT_TRUE(eventually([&] { return sheet.sheet().height() > 460 && hasRoom(); }));
    const int height = sheet.sheet().height();
    loadChapters(0);
    EXPECT_TRUE(eventually([&] { return sheet.sheet().height() < height; }));
    loadChapters(12);
    EXPECT_TRUE(eventually([&] { return sheet.sheet().height() == height && hasRoom(); }));
}

TEST_F(ReleaseResultsTest, AreCountedWithWhatWasSearchedFor)
{
    model.artist = u" The Artist "_s;
    model.albumTitle = u"The <b>Album</b> \n"_s;
    ShownSheet sheet = show({foundRelease(u"a"_s, u"A"_s), foundRelease(u"b"_s, u"B"_s)});
    EXPECT_TRUE(sheet.shows<QLabel>(u"2 matches for The Artist — The <b>Album</b>"_s));
    model.searchResults = {foundRelease(u"a"_s, u"A"_s)};
    EXPECT_TRUE(sheet.shows<QLabel>(u"1 match for The Artist — The <b>Album</b>"_s));
    model.artist = u"  "_s;
    EXPECT_TRUE(sheet.shows<QLabel>(u"1 match for The <b>Album</b>"_s));
    model.albumTitle = QString();
    EXPECT_TRUE(sheet.shows<QLabel>(u"1 match"_s));
    model.searchResults = QList<ReleaseInfo>();
    EXPECT_TRUE(sheet.shows<QLabel>(u"0 matches"_s));
}

TEST_F(ReleaseResultsTest, AreWaitedForWithSpinners)
{
    ShownSheet sheet = showLoading();
    EXPECT_TRUE(sheet.shows<QLabel>(u"Searching…"_s));
    EXPECT_FALSE(sheet.shows<QLabel>(noneMatched));
    const QList<Spinner *> spinners = spinnersIn(sheet.sheet());
    ASSERT_EQ(spinners.size(), 2);
    const auto centreOf = [&](Spinner *spinner) {
        return spinner->mapTo(&sheet.sheet(), spinner->rect().center());
    };
    EXPECT_LT(centreOf(spinners[0]).y(), 100) << "the status line's";
    EXPECT_NEAR(centreOf(spinners[1]).x(), 310, 1) << "the list's";
    model.isLoadingReleases = false;
    EXPECT_TRUE(spinnersIn(sheet.sheet()).isEmpty());
    EXPECT_TRUE(sheet.shows<QLabel>(u"0 matches"_s));
}

TEST_F(ReleaseResultsTest, MayBeNone)
{
    ShownSheet sheet = show({});
    EXPECT_TRUE(sheet.shows<QLabel>(noneMatched));
    EXPECT_TRUE(sheet.button(u"Close"_s).isEnabled());
    EXPECT_FALSE(sheet.button(u"Use This Release"_s).isEnabled());
    EXPECT_FALSE(sheet.shows(u"Releases"_s));
}

TEST_F(ReleaseResultsTest, MayComeAfterTheSheet)
{
    ShownSheet sheet = showLoading();
    EXPECT_FALSE(sheet.button(u"Use This Release"_s).isEnabled());
    model.searchResults = {foundRelease(u"a"_s, u"A"_s), foundRelease(u"b"_s, u"B"_s)};
    model.isLoadingReleases = false;
    EXPECT_EQ(sheet.rows().size(), 2);
    EXPECT_EQ(sheet.highlightedRow(), 0);
    EXPECT_TRUE(sheet.list().hasFocus());
    EXPECT_TRUE(sheet.button(u"Use This Release"_s).isEnabled());
    EXPECT_TRUE(sheet.shows(u"Cancel"_s));
}

TEST_F(ReleaseResultsTest, MayGoAgain)
{
    ShownSheet sheet = show({foundRelease(u"a"_s, u"A"_s)});
    model.searchResults = QList<ReleaseInfo>();
    EXPECT_FALSE(sheet.button(u"Use This Release"_s).isEnabled());
    EXPECT_TRUE(sheet.shows(u"Close"_s));
    EXPECT_TRUE(sheet.shows<QLabel>(noneMatched));
}

TEST_F(ReleaseResultsTest, SayWhetherTheyHaveOneTrackPerChapter)
{
    loadChapters(12);
    EXPECT_EQ(detailOf(foundRelease(u"a"_s, u"A"_s, 12)), u", ✓ one track per chapter · 12 tracks"_s);
    EXPECT_EQ(detailOf(foundRelease(u"a"_s, u"A"_s, 11)), u", 11 tracks"_s);
    EXPECT_EQ(detailOf(foundRelease(u"a"_s, u"A"_s)), QString());
    ReleaseInfo complete = foundRelease(u"a"_s, u"A"_s, 11);
    complete.tracks = tracksTitled(numbered(12));
    EXPECT_EQ(detailOf(complete), u", ✓ one track per chapter · 12 tracks"_s);
    complete.tracks.removeLast();
    complete.trackCount = 12;
    EXPECT_EQ(detailOf(complete), u", 11 tracks"_s);
    loadChapters(0);
    EXPECT_EQ(detailOf(foundRelease(u"a"_s, u"A"_s, 0)), u", 0 tracks"_s);
}

TEST_F(ReleaseResultsTest, SayWhichDiscOfASetTheyAre)
{
    ReleaseInfo set = foundRelease(u"a"_s, u"A"_s);
    set.matchedDiscPosition = 2;
    set.discCount = 3;
    EXPECT_EQ(detailOf(set), u", disc 2 of 3"_s);
    set.matchedDiscPosition = 1;
    set.discCount = 1;
    EXPECT_EQ(detailOf(set), QString());
    set.discCount = std::nullopt;
    EXPECT_EQ(detailOf(set), QString());
    set.matchedDiscPosition = std::nullopt;
    set.discCount = 3;
    EXPECT_EQ(detailOf(set), QString());
}

TEST_F(ReleaseResultsTest, TellWhatIsKnownInOrder)
{
    loadChapters(2);
    ReleaseInfo release = foundRelease(u"a"_s, u"A & B"_s, 2);
    release.year = u"1999"_s;
    release.mediaFormat = u"CD"_s;
    release.country = u"DE"_s;
    release.label = u"The Label"_s;
    release.catalogNumber = u"LAB 1"_s;
    release.matchedDiscPosition = 1;
    release.discCount = 2;
    ShownSheet sheet = show({release});
    EXPECT_EQ(sheet.rows(), QStringList{u"The Artist - A & B (1999) [MusicBrainz], disc 1 of 2 · ✓ one track "
                                        u"per chapter · 2 tracks · CD · DE · The Label · LAB 1"_s});
    EXPECT_EQ(sheet.list().accessibleName(), u"Releases"_s);
}

TEST_F(ReleaseResultsTest, FollowTheChapters)
{
    ShownSheet sheet = show({foundRelease(u"a"_s, u"A"_s, 2), foundRelease(u"b"_s, u"B"_s, 3)});
    sheet.clickRow(1);
    loadChapters(3);
    EXPECT_TRUE(sheet.rows()[1].contains(u"✓ one track per chapter"_s));
    EXPECT_FALSE(sheet.rows()[0].contains(u"✓"_s));
    EXPECT_EQ(sheet.highlightedRow(), 1);
}

TEST_F(ReleaseResultsTest, ShowASpinnerInTheRowThatIsLoaded)
{
    ShownSheet sheet = show({foundRelease(u"a"_s, u"A"_s), foundRelease(u"b"_s, u"B"_s)});
    const auto placeOfSpinner = [&] {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        ShownWindow::settle();
        const QList<Spinner *> spinners = spinnersIn(sheet.list());
        return spinners.size() == 1 ? QRect(spinners.first()->mapTo(sheet.list().viewport(), QPoint()),
                                            spinners.first()->size())
                                    : QRect();
    };
    model.loadingReleaseID = u"b"_s;
    EXPECT_TRUE(sheet.placeOf(1).contains(placeOfSpinner()));
    EXPECT_EQ(sheet.placeOf(1).right() - placeOfSpinner().right(), 8);
    sheet.sheet().setLayoutDirection(Qt::RightToLeft);
    EXPECT_EQ(placeOfSpinner().left() - sheet.placeOf(1).left(), 8);
    model.loadingReleaseID = u"a"_s;
    EXPECT_TRUE(sheet.placeOf(0).contains(placeOfSpinner()));
    model.loadingReleaseID = std::nullopt;
    EXPECT_TRUE(placeOfSpinner().isNull());
}

TEST_F(ReleaseResultsTest, SayOnTheButtonThatATracklistIsLoaded)
{
    ShownSheet sheet = show({foundRelease(u"a"_s, u"A"_s)});
    const int width = sheet.button(u"Use This Release"_s).width();
    model.loadingReleaseID = u"a"_s;
    QPushButton &button = sheet.button(u"Loading Tracklist…"_s);
    EXPECT_FALSE(button.isEnabled());
    EXPECT_EQ(button.width(), width);
    ASSERT_EQ(spinnersIn(button).size(), 1);
    ShownWindow::settle();
    button.grab();
    EXPECT_TRUE(button.rect().adjusted(4, 2, -4, -2).contains(spinnersIn(button).first()->geometry()));
    model.loadingReleaseID = std::nullopt;
    EXPECT_TRUE(sheet.button(u"Use This Release"_s).isEnabled());
    EXPECT_TRUE(spinnersIn(button).isEmpty());
}

TEST_F(ReleaseResultsTest, ComeWithTheSearchsNotices)
{
    model.searchNotices = {{MetadataSource::discogs, u"Discogs <b>failed</b>."_s, false}};
    ShownSheet sheet = show({foundRelease(u"a"_s, u"A"_s)});
    EXPECT_TRUE(sheet.shows<QLabel>(u"Discogs <b>failed</b>."_s));
    model.searchNotices = QList<MetadataSearchOutcome::Notice>();
    EXPECT_FALSE(sheet.shows<QLabel>(u"Discogs <b>failed</b>."_s));
}

TEST_F(ReleaseResultsTest, FillTheListWithoutASidewaysScrollBar)
{
    ReleaseInfo release = foundRelease(u"a"_s, u"<b>An album</b> with a very long title "_s.repeated(10));
    release.label = u"A label with a very long name "_s.repeated(10);
    ShownSheet sheet = show(QList<ReleaseInfo>(50, release));
    EXPECT_EQ(sheet.placeOf(0).width(), sheet.list().viewport()->width());
    EXPECT_EQ(sheet.placeOf(49).height(), sheet.placeOf(0).height());
}

} // namespace tonearm
