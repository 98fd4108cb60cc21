// SPDX-License-Identifier: GPL-3.0-or-later
// Pictures of the whole window in its states for people to look at.
#include "e2e/ShownWindow.h"

#include "app/screens/mainwindow/FFmpegBanner.h"
#include "helpers/Await.h"
#include "helpers/Printing.h"
#include "helpers/Rendering.h"

#include <QApplication>
#include <QFile>

namespace tonearm {

using namespace Qt::StringLiterals;
using namespace test;

namespace {

QList<ChapterMark> chapters()
{
    QList<ChapterMark> all;
    for (int number = 0; number < 12; ++number)
        all.append({number * 187.0, (number + 1) * 187.0, u"Chapter No. %1"_s.arg(number + 1)});
    all[1].title = u"A Chapter With a Title That Doesn't Fit Into Its Column by Far"_s;
    all[4].title = u"第五章 長い題名の章"_s;
    return all;
}

struct WindowPictures : testing::WithParamInterface<bool>, ScriptedWindowTest
{
    WindowPictures()
        : ScriptedWindowTest(chapters())
    {
    }

    void describeAlbum()
    {
        model.artist = u"Sinfonieorchester des Bayerischen Rundfunks"_s;
        model.albumTitle =
            u"The Complete Symphonies, Recorded Live in the Great Hall (Anniversary Edition)"_s;
        model.albumYear = u"1969"_s;
        model.genre = u"Classical"_s;
        model.discNumber = u"1"_s;
        model.discTotal = u"4"_s;
        model.setMappedTitle(1,
                             u"Symphony No. 5 in C minor, Op. 67: III. Scherzo. Allegro – attacca (take two, "
                             u"with the audience)"_s);
    }

    static QString suffixed(const QString &name) { return name + (GetParam() ? u"-dark"_s : u"-light"_s); }

    // At the scale factor that the tests run with.
    static void keep(QWidget &widget, const QString &name)
    {
        const double scale = widget.devicePixelRatioF();
        const QString scaled = scale > 1 ? name + u"-x%1"_s.arg(scale) : name;
        EXPECT_NE(renderToPng(widget, suffixed(scaled), scale), QString());
    }

    void keepWindow(const QString &state, const QSize &size = {940, 940})
    {
        window.resizeContent(size);
        ShownWindow::settle();
        keep(window.window(),
             u"window-%1-%2x%3"_s.arg(state, QString::number(size.width()), QString::number(size.height())));
    }

    PaletteScope palette{GetParam() ? darkPalette() : lightPalette()};
};

} // namespace

TEST_P(WindowPictures, Empty)
{
    surroundings.findTools();
    keepWindow(u"empty"_s);
    keepWindow(u"empty"_s, {820, 900});
}

TEST_P(WindowPictures, Loaded)
{
    surroundings.prepareJob(tools.source());
    describeAlbum();
    keepWindow(u"loaded"_s, {820, 900});
    keepWindow(u"loaded"_s, {1920, 1080});
    keepWindow(u"loaded"_s, {940, 940});
}

TEST_P(WindowPictures, DuringAJob)
{
    tools.setEncoding("if [ \"$track\" = 5 ]; then touch \"$here/fifth\"; " + ScriptedTools::waiting("go") +
                      "fi; echo sound > \"$output\"");
    surroundings.prepareJob(tools.source());
    describeAlbum();
    click(window.button(u"Encode to FLAC"_s));
    ASSERT_TRUE(tools.waitFor(u"fifth"_s));
    keepWindow(u"job"_s);
}

TEST_P(WindowPictures, Finished)
{
    surroundings.prepareJob(tools.source());
    describeAlbum();
    surroundings.runJob();
    window.button(u"Encode to FLAC"_s).setFocus(Qt::TabFocusReason);
    keepWindow(u"finished"_s);
    keepWindow(u"finished"_s, {820, 900});
}

TEST_P(WindowPictures, Failed)
{
    tools.setEncoding("echo Something went quite wrong on the way >&2; exit 1");
    surroundings.prepareJob(tools.source());
    describeAlbum();
    model.albumYear = u"69"_s;
    surroundings.runJob();
    keep(window.dialog(), u"alert"_s);
    keepWindow(u"error"_s);
}

TEST_P(WindowPictures, WithoutTools)
{
    ASSERT_TRUE(QFile::rename(tools.path(u"bin/ffmpeg"_s), tools.path(u"ffmpeg"_s)));
    model.checkFFmpeg();
    window.waitFor(u"Check Again"_s);
    // It slides in from above.
    const auto *banner = window.window().findChild<FFmpegBanner *>();
    const auto *panel = banner->findChild<QWidget *>({}, Qt::FindDirectChildrenOnly);
    ASSERT_TRUE(eventually([&] { return panel->y() == 0 && panel->height() > 0; }));
    keepWindow(u"tools-missing"_s);
    keepWindow(u"tools-missing"_s, {820, 900});
}

TEST_P(WindowPictures, WithAQuestion)
{
    surroundings.loadFile(tools.source());
    describeAlbum();
    model.requestFile(QUrl(u"file:///music/Another%20Concert.mkv"_s));
    keep(window.dialog(), u"question"_s);
}

INSTANTIATE_TEST_SUITE_P(LightAndDark, WindowPictures, testing::Bool(),
                         [](const auto &dark) { return dark.param ? "Dark" : "Light"; });

} // namespace tonearm
