// SPDX-License-Identifier: GPL-3.0-or-later
// For how long the window's flows keep its event loop from turning. The figures go into the report of
// the run; nothing is asserted on them, since a machine may be busy with other things.
#include "helpers/Heartbeat.h"
#include "app/screens/chapters/ChapterTable.h"
#include "app/screens/mainwindow/CoverArtWindow.h"
#include "e2e/ShownSheet.h"
#include "helpers/Contents.h"
#include "helpers/ReleasePages.h"
#include "helpers/Sources.h"

#include <QApplication>
#include <QDir>
#include <QImage>

#include <iostream>

namespace tonearm {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using namespace test;

namespace {

constexpr int manyChapters = 999;

QList<ChapterMark> shortChapters(int count)
{
    constexpr double length = 0.5;
    QList<ChapterMark> chapters;
    for (int number = 0; number < count; ++number)
        chapters.append({number * length, (number + 1) * length, u"Chapter No. %1"_s.arg(number + 1)});
    return chapters;
}

// Whether the rows of a sheet have been painted.
class PaintedRows : public QObject
{
public:
    explicit PaintedRows(qsizetype count)
        : m_count(count)
    {
        qApp->installEventFilter(this);
    }

    bool hasCome() const { return m_hasCome; }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        const auto *list = qobject_cast<ReleaseList *>(watched->parent());
        if (event->type() == QEvent::Paint && list && list->model()->rowCount() == m_count)
            m_hasCome = true;
        return false;
    }

private:
    qsizetype m_count;
    bool m_hasCome = false;
};

// Puts down what a flow came to, and starts afresh for the next.
void keep(Heartbeat &heart, const std::string &flow)
{
    const Heartbeat::Gap longest = heart.longest();
    const int late = heart.longerThan(16ms);
    testing::Test::RecordProperty(flow + "_longest_gap_us", std::to_string(longest.elapsed.count()));
    testing::Test::RecordProperty(flow + "_longest_work_us", std::to_string(longest.worked.count()));
    testing::Test::RecordProperty(flow + "_gaps_over_16_ms", std::to_string(late));
    std::cout << flow << ": longest gap " << longest.elapsed.count() << " us, longest work "
              << longest.worked.count() << " us, gaps over 16 ms: " << late << '\n';
    heart.reset();
}

struct HeartbeatTest : ScriptedWindowTest
{
    HeartbeatTest()
        : ScriptedWindowTest(shortChapters(manyChapters))
    {
    }

    void load()
    {
        model.loadFile(QUrl::fromLocalFile(tools.source()));
        ASSERT_TRUE(heart.runUntil([this] { return model.chapters.value().size() == manyChapters; }));
    }

    Heartbeat heart;
};

} // namespace

TEST_F(HeartbeatTest, OfALoadOfManyChapters)
{
    ASSERT_NO_FATAL_FAILURE(load());
    EXPECT_EQ(window.titleBox(1).text(), u"Chapter No. 1"_s);
    keep(heart, "load_999_chapters");
}

TEST_F(HeartbeatTest, OfTyping)
{
    ASSERT_NO_FATAL_FAILURE(load());
    heart.reset();
    window.titleBox(1).setFocus();
    heart.run(40, [](int step) { type(QString(QChar(u'a' + step % 26))); });
    EXPECT_EQ(model.chapters.value().first().mappedTitle.size(), 40 + u"Chapter No. 1"_s.size());
    keep(heart, "type_a_title_of_999");
    window.box(u"Artist"_s).setFocus();
    heart.run(40, [](int step) { type(QString(QChar(u'a' + step % 26))); });
    EXPECT_EQ(model.artist.value().size(), 40);
    keep(heart, "type_the_artist");
}

TEST_F(HeartbeatTest, OfScrolling)
{
    ASSERT_NO_FATAL_FAILURE(load());
    heart.reset();
    QWidget &table = *window.window().findChild<ChapterTable *>();
    heart.run(100, [&](int /*step*/) { turnWheel(*table.childAt(table.rect().center()), 3); });
    EXPECT_FALSE(window.shows(u"Song title for chapter 1"_s));
    keep(heart, "scroll_999_chapters");
}

TEST_F(HeartbeatTest, OfResizing)
{
    ASSERT_NO_FATAL_FAILURE(load());
    heart.reset();
    heart.run(60, [this](int step) { window.resizeContent({820 + step * 15, 900 + step * 3}); });
    keep(heart, "resize");
}

TEST_F(HeartbeatTest, OfGoingBackToTheChapterTitles)
{
    ASSERT_NO_FATAL_FAILURE(load());
    heart.reset();
    heart.run(10, [this](int /*step*/) { click(window.button(u"Use Chapter Titles"_s)); });
    keep(heart, "reset_999_titles");
}

TEST(Heartbeat, OfASearchForFiftyReleases)
{
    constexpr int ofEachService = 25;
    QList<ReleaseInfo> releases;
    for (int number = 1; number <= ofEachService; ++number)
        releases.append(foundRelease(QString::number(number), u"The Album, Volume %1"_s.arg(number), number));
    ReleasePages pages;
    pages.findAtMusicBrainz(releases);
    pages.findAtDiscogs(releases);
    pages.addTracks(u"1"_s, QStringList(manyChapters, u"Title"_s));
    ModelFixture surroundings({.addresses = ModelFixture::servicesAt(pages.origin())});
    ShownWindow window(surroundings.model());
    surroundings->chapters = chaptersTitled(QStringList(manyChapters, u"Chapter"_s));
    surroundings->artist = u"The Artist"_s;
    ShownWindow::settle();
    Heartbeat heart;
    PaintedRows rows(2 * ofEachService);
    click(window.button(u"Search"_s));
    ASSERT_TRUE(heart.runUntil([&] { return rows.hasCome(); }));
    keep(heart, "search_50_releases");
    ShownSheet sheet(window);
    heart.run(20, [](int /*step*/) { press(Qt::Key_Down); });
    keep(heart, "walk_through_releases");
    sheet.list().setHighlightedID(u"1"_s);
    click(sheet.button(u"Use This Release"_s));
    ASSERT_TRUE(heart.runUntil([&] { return surroundings->selectedRelease.value().has_value(); }));
    EXPECT_EQ(window.titleBox(2).text(), u"Title"_s);
    keep(heart, "apply_999_tracks");
}

TEST(Heartbeat, OfALargeCover)
{
    ModelFixture surroundings;
    ShownWindow window(surroundings.model());
    CoverArtWindow viewer(surroundings.model());
    ASSERT_TRUE(showActive(viewer));
    QImage picture(4000, 4000, QImage::Format_RGB32);
    picture.fill(Qt::red);
    ASSERT_TRUE(picture.save(surroundings.path(u"front.jpg"_s)));
    Heartbeat heart;
    EXPECT_TRUE(drop(window.find(u"Cover art drop area"_s), {surroundings.url(u"front.jpg"_s)}));
    ASSERT_TRUE(heart.runUntil([&] { return surroundings->coverArtPreview.value().has_value(); }));
    heart.run(5, [](int /*step*/) {});
    keep(heart, "cover_of_4000_by_4000");
}

TEST(Heartbeat, OfAJobWithRealTools)
{
    constexpr int tracks = 20;
    const QString source =
        sharedSource(u"short-tracks"_s, {.duration = tracks * 0.5, .chapters = shortChapters(tracks)});
    ModelFixture surroundings;
    ShownWindow window(surroundings.model());
    surroundings.prepareJob(source);
    Heartbeat heart;
    click(window.button(u"Encode to FLAC"_s));
    ASSERT_TRUE(heart.runUntil([&] { return surroundings->completion.value().has_value(); }));
    EXPECT_EQ(namesIn(surroundings.outputPath()).filter(u".flac"_s).size(), tracks);
    keep(heart, "job_of_20_tracks");
}

} // namespace tonearm
