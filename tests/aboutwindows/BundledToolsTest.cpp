// SPDX-License-Identifier: GPL-3.0-or-later
// What the About window says of the tools.
#include "aboutwindows/ShownAbout.h"

#include "app/screens/elements/Colours.h"
#include "app/screens/elements/Spinner.h"

#include <QFile>
#include <QLineEdit>

namespace tonearm {

using namespace Qt::StringLiterals;
using namespace test;

namespace {

struct BundledToolsTest : ShownAbout
{
    void loseFFmpeg() { ASSERT_TRUE(QFile::rename(tools.path(u"bin/ffmpeg"_s), tools.path(u"ffmpeg"_s))); }

    void restoreFFmpeg() { ASSERT_TRUE(QFile::rename(tools.path(u"ffmpeg"_s), tools.path(u"bin/ffmpeg"_s))); }

    void addParanoia(const QByteArray &body) { tools.add(u"cd-paranoia"_s, body); }

    Spinner &spinner() { return *view.findChild<Spinner *>(); }
};

} // namespace

TEST_F(BundledToolsTest, AreLookedForWhenTheWindowOpens)
{
    EXPECT_FALSE(model.ffmpegCheckTask.value());
    ASSERT_TRUE(showActive(view));
    EXPECT_FALSE(std::holds_alternative<FFmpegChecking>(model.ffmpegStatus.value()) &&
                 !model.ffmpegCheckTask.value());
    waitForChecks();
    EXPECT_TRUE(model.isFFmpegInstalled());
}

TEST_F(BundledToolsTest, AreNotLookedForAgainWhereTheyAreKnownToBeMissing)
{
    model.ffmpegStatus = FFmpegMissing{u"gone"_s};
    ASSERT_TRUE(showActive(view));
    EXPECT_FALSE(model.ffmpegCheckTask.value());
}

TEST_F(BundledToolsTest, StandInTheirRows)
{
    openAndWait();
    for (const QString &name : {u"ffmpeg"_s, u"cd-paranoia"_s, u"Audio Format"_s})
        EXPECT_TRUE(shows<QLabel>(name)) << name.toStdString();
    EXPECT_TRUE(shows<QLabel>(u"FLAC (via bundled ffmpeg)"_s));
}

TEST_F(BundledToolsTest, StandInTwoColumns)
{
    openAndWait();
    const auto place = [this](QWidget &widget) {
        return QRect(widget.mapTo(&view, QPoint()), widget.size());
    };
    const QRect ffmpeg = place(find<QLabel>(u"ffmpeg"_s));
    const QRect paranoia = place(find<QLabel>(u"cd-paranoia"_s));
    const QRect format = place(find<QLabel>(u"Audio Format"_s));
    EXPECT_EQ(paranoia.top() - ffmpeg.bottom() - 1, 6);
    EXPECT_EQ(format.top() - paranoia.bottom() - 1, 6);
    for (const QString &value : {u"Installed"_s, u"Not available"_s, u"FLAC (via bundled ffmpeg)"_s})
        EXPECT_EQ(place(find<QLabel>(value)).left() - format.right() - 1, 12) << value.toStdString();
    for (const QString &name : {u"ffmpeg"_s, u"cd-paranoia"_s, u"Audio Format"_s}) {
        const auto &label = find<QLabel>(name);
        EXPECT_EQ(label.palette().color(label.foregroundRole()), toneColour(Tone::secondary, view.palette()));
    }
}

TEST_F(BundledToolsTest, AreToldByTheirVersion)
{
    addParanoia("echo 'cd-paranoia 10.2 libcdio 2.1.0'");
    openAndWait();
    EXPECT_TRUE(shows<QLabel>(u"Installed"_s));
    const auto &version = find<QLineEdit>(u"ffmpeg"_s);
    EXPECT_EQ(version.text(), u"ffmpeg 9.9"_s);
    EXPECT_TRUE(version.isReadOnly());
    EXPECT_TRUE(shows<QLabel>(u"cd-paranoia 10.2"_s));
    EXPECT_FALSE(spinner().isVisible());
    EXPECT_FALSE(shows<QPushButton>(u"Check Again"_s));
}

TEST_F(BundledToolsTest, AreToldByTheirPlaceWhereTheyTellNoVersion)
{
    tools.add(u"ffmpeg"_s, "exit 0");
    addParanoia("exit 1");
    openAndWait();
    EXPECT_EQ(find<QLineEdit>(u"ffmpeg"_s).text(), tools.path(u"bin/ffmpeg"_s));
    EXPECT_EQ(allNamed<QLabel>(view, u"Installed"_s).size(), 2);
    EXPECT_EQ(view.width(), 480);
}

TEST_F(BundledToolsTest, AreAwaitedBehindASpinner)
{
    tools.setEncoding("exit 1");
    tools.add(u"ffmpeg"_s, ScriptedTools::waiting("go") + "echo ffmpeg version 1.0 x");
    ASSERT_TRUE(showActive(view));
    EXPECT_TRUE(spinner().isVisible());
    EXPECT_FALSE(shows<QLabel>(u"Installed"_s));
    EXPECT_FALSE(shows<QLabel>(u"Not installed"_s));
    EXPECT_FALSE(shows<QPushButton>(u"Check Again"_s));
    tools.release(u"go"_s);
    waitForChecks();
    EXPECT_FALSE(spinner().isVisible());
    EXPECT_EQ(find<QLineEdit>(u"ffmpeg"_s).text(), u"ffmpeg 1.0"_s);
}

TEST_F(BundledToolsTest, AreToldToBeMissing)
{
    loseFFmpeg();
    openAndWait();
    EXPECT_TRUE(shows<QLabel>(u"Not installed"_s));
    EXPECT_TRUE(shows<QPushButton>(u"Check Again"_s));
    EXPECT_FALSE(shows<QLineEdit>(u"ffmpeg"_s));
    EXPECT_TRUE(shows<QLabel>(u"Not available"_s));
    EXPECT_FALSE(spinner().isVisible());
}

TEST_F(BundledToolsTest, AreLookedForAgainByTheButton)
{
    loseFFmpeg();
    openAndWait();
    restoreFFmpeg();
    click(find<QPushButton>(u"Check Again"_s));
    EXPECT_TRUE(model.ffmpegCheckTask.value());
    EXPECT_TRUE(spinner().isVisible());
    EXPECT_FALSE(shows<QPushButton>(u"Check Again"_s));
    waitForChecks();
    EXPECT_EQ(find<QLineEdit>(u"ffmpeg"_s).text(), u"ffmpeg 9.9"_s);
    EXPECT_FALSE(shows<QLabel>(u"Not installed"_s));
}

TEST_F(BundledToolsTest, KeepTheWindowAsHighAsItsContent)
{
    loseFFmpeg();
    openAndWait();
    EXPECT_TRUE(eventually([this] {
        return find<QLabel>(u"Copyright © Somebody"_s).geometry().bottom() + 1 + 24 == view.height();
    }));
}

} // namespace tonearm
