// SPDX-License-Identifier: GPL-3.0-or-later
// The window's sizes and what becomes of its content in them.
#include "e2e/ShownWindow.h"

#include "app/screens/elements/Divider.h"
#include "app/screens/elements/SectionBox.h"
#include "app/screens/mainwindow/ContentView.h"
#include "helpers/Await.h"
#include "helpers/Printing.h"

#include <QLabel>
#include <QScreen>
#include <QWindow>

namespace tonearm {

using namespace Qt::StringLiterals;
using namespace test;

namespace {

struct LayoutTest : ScriptedWindowTest
{
    LayoutTest()
        : ScriptedWindowTest(twelveChapters())
    {
    }

    static QList<ChapterMark> twelveChapters()
    {
        QList<ChapterMark> chapters;
        for (int number = 0; number < 12; ++number)
            chapters.append(
                {number * 1.0, number + 1.0, u"A Title of Some Length, No. %1"_s.arg(number + 1)});
        return chapters;
    }

    // Everything that can be shown at once.
    void fill()
    {
        surroundings.prepareJob(tools.source());
        model.artist = u"The Artist"_s;
        model.albumYear = u"69"_s;
        surroundings.runJob();
    }

    QWidget &column() { return *window.window().findChild<ContentView *>()->widget(); }

    void expectNothingClippedAt(const QSize &size)
    {
        window.resizeContent(size);
        ShownWindow::settle();
        EXPECT_EQ(window.contentSize(), size);
        EXPECT_EQ(window.clipped(), QStringList());
        EXPECT_EQ(column().width(), window.window().findChild<ContentView *>()->viewport()->width());
        EXPECT_GE(column().width(), column().minimumSizeHint().width());
    }
};

} // namespace

TEST_F(LayoutTest, HasASizeAtFirstAndALeastOne)
{
    EXPECT_EQ(window.window().windowTitle(), u"Tonearm"_s);
    EXPECT_EQ(window.contentSize(), QSize(940, 940));
    window.window().resize(100, 100);
    ShownWindow::settle();
    EXPECT_EQ(window.contentSize(), QSize(820, 900));
}

TEST_F(LayoutTest, FitsALowScreenAndScrollsThere)
{
    surroundings.prepareJob(tools.source());
    window.window().keepWithin({1366, 728});
    ShownWindow::settle();
    EXPECT_EQ(window.window().size(), QSize(940, 688));
    EXPECT_EQ(window.clipped(), QStringList());
    auto &area = *window.window().findChild<ContentView *>();
    QWidget &encode = window.button(u"Encode to FLAC"_s);
    const auto isInView = [&] {
        return area.viewport()->rect().contains(QRect(encode.mapTo(&area, QPoint()), encode.size()));
    };
    EXPECT_FALSE(isInView());
    WindowUser::tabTo(u"Encode to FLAC"_s);
    EXPECT_TRUE(isInView());
}

TEST_F(LayoutTest, FitsALowScreenThatItComesTo)
{
    QScreen *screen = window.window().screen();
    ASSERT_LT(screen->availableSize().height(), 900);
    Q_EMIT window.window().windowHandle()->screenChanged(screen);
    ShownWindow::settle();
    EXPECT_EQ(window.window().height(), screen->availableSize().height() - 40);
}

TEST_F(LayoutTest, StaysAsItIsOnAHighScreen)
{
    window.window().keepWithin({3840, 2160});
    ShownWindow::settle();
    EXPECT_EQ(window.contentSize(), QSize(940, 940));
    window.window().resize(100, 100);
    ShownWindow::settle();
    EXPECT_EQ(window.contentSize(), QSize(820, 900));
}

TEST_F(LayoutTest, HasItsSectionsInOrderWithDividersBetween)
{
    QStringList order;
    for (const QObject *child : column().children()) {
        if (const auto *section = qobject_cast<const SectionBox *>(child))
            order.append(section->title());
        else if (qobject_cast<const Divider *>(child))
            order.append(u"-"_s);
    }
    EXPECT_EQ(order, (QStringList{u"Source File"_s, u"-"_s, u"Album Metadata"_s, u"-"_s,
                                  u"Chapters & Song Titles"_s, u"-"_s, u"Encode"_s}));
}

TEST_F(LayoutTest, KeepsTheSameGapsAllTheWayDown)
{
    fill();
    ShownWindow::settle();
    QList<int> gaps;
    int bottom = -1;
    for (const QObject *child : column().children()) {
        const auto *block = qobject_cast<const QWidget *>(child);
        if (!block || !block->isVisible())
            continue;
        gaps.append(block->y() - bottom - 1);
        bottom = block->geometry().bottom();
    }
    gaps.append(column().height() - bottom - 1);
    EXPECT_EQ(gaps, (QList<int>{16, 12, 12, 12, 12, 12, 12, 16}));
}

TEST_F(LayoutTest, LeavesNoHolesInASection)
{
    // As many words as fit into a line.
    model.albumTitle = u"The Complete Symphonies, Recorded Live in the Great Hall (Anniversary Edition)"_s;
    surroundings.prepareJob(tools.source());
    surroundings.runJob();
    ShownWindow::settle();
    auto &encode = window.button(u"Encode to FLAC"_s);
    auto &status =
        *window.find<QLabel>(u"Encoded 12 tracks to %1."_s.arg(model.albumTitle.value())).parentWidget();
    auto &summary = window.find<QLabel>(u"Encoded 12 tracks to %1"_s.arg(model.albumTitle.value()));
    EXPECT_EQ(status.y() - encode.geometry().bottom() - 1, 10);
    EXPECT_EQ(summary.y() - status.geometry().bottom() - 1, 10);
    EXPECT_EQ(summary.geometry().bottom(), summary.parentWidget()->rect().bottom());
}

TEST_F(LayoutTest, ClipsNothingWhileItIsEmpty)
{
    for (const QSize &size : {QSize(820, 900), QSize(940, 940), QSize(1920, 1080)})
        expectNothingClippedAt(size);
}

TEST_F(LayoutTest, ClipsNothingWhenItIsFull)
{
    fill();
    for (const QSize &size : {QSize(820, 900), QSize(940, 940), QSize(1920, 1080)})
        expectNothingClippedAt(size);
}

TEST_F(LayoutTest, ClipsNothingWhenToolsAreMissing)
{
    surroundings.loadFile(tools.source());
    ASSERT_TRUE(QFile::rename(tools.path(u"bin/ffmpeg"_s), tools.path(u"ffmpeg"_s)));
    model.checkFFmpeg();
    window.waitFor(u"Check Again"_s);
    // The banner has come down to its place once it has its full height.
    const QWidget &title = window.find<QLabel>(u"Tonearm's audio tools are missing"_s);
    ASSERT_TRUE(eventually([&] { return title.visibleRegion().boundingRect() == title.rect(); }));
    for (const QSize &size : {QSize(820, 900), QSize(1920, 1080)})
        expectNothingClippedAt(size);
}

TEST_F(LayoutTest, GivesTheTableWhatRoomThereIs)
{
    const SectionBox *section = nullptr;
    for (const auto *box : window.window().findChildren<SectionBox *>())
        section = box->title().startsWith(u"Chapters"_s) ? box : section;
    ASSERT_TRUE(section);
    const int before = section->height();
    window.resizeContent({940, 1140});
    ShownWindow::settle();
    EXPECT_EQ(section->height(), before + 200);
}

TEST_F(LayoutTest, NamesEverythingThatTakesTheKeyboard)
{
    fill();
    int count = 0;
    for (QWidget *widget : window.window().findChildren<QWidget *>()) {
        if (!widget->isVisible() || widget->focusPolicy() == Qt::NoFocus || widget->focusProxy())
            continue;
        EXPECT_NE(accessibleNameOf(*widget), QString()) << widget->metaObject()->className();
        ++count;
    }
    EXPECT_GT(count, 18);
}

} // namespace tonearm
