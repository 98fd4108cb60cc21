// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/elements/WindowSizes.h"

#include "helpers/Await.h"
#include "helpers/Contents.h"
#include "helpers/Widgets.h"

#include <gtest/gtest.h>

#include <QScreen>
#include <QTemporaryDir>
#include <QWidget>

#include <sys/stat.h>

namespace tonearm {

using namespace Qt::StringLiterals;
using namespace test;

namespace {

constexpr QSize defaultSize(300, 200);

// One run of the program with one window.
class ProgramRun
{
public:
    explicit ProgramRun(const QString &path)
        : m_sizes(path)
    {
        m_window.resize(defaultSize);
        m_sizes.follow(m_window, u"main"_s);
        EXPECT_TRUE(showActive(m_window));
    }

    QWidget &window() { return m_window; }

private:
    WindowSizes m_sizes;
    QWidget m_window;
};

struct WindowSizesTest : testing::Test
{
    // The size that a window comes up with after the file says this.
    QSize sizeAfter(const QByteArray &contents)
    {
        writeFile(path, contents);
        return ProgramRun(path).window().size();
    }

    static QByteArray entry(const QByteArray &width, const QByteArray &height)
    {
        return "{\"main\": {\"width\": " + width + ", \"height\": " + height + "}}";
    }

    QTemporaryDir folder;
    QString path = folder.filePath(u"windows.json"_s);
};

} // namespace

TEST_F(WindowSizesTest, LeavesAWindowItsDefaultAtFirst)
{
    ProgramRun run(path);
    EXPECT_EQ(run.window().size(), defaultSize);
    EXPECT_FALSE(run.window().isMaximized());
}

TEST_F(WindowSizesTest, RemembersTheSizeFromRunToRun)
{
    {
        ProgramRun run(path);
        run.window().resize(410, 310);
        run.window().close();
    }
    ProgramRun run(path);
    EXPECT_EQ(run.window().size(), QSize(410, 310));
}

TEST_F(WindowSizesTest, RemembersTheSizeWithinARun)
{
    WindowSizes sizes(path);
    for (const QSize &expected : {defaultSize, QSize(410, 310)}) {
        QWidget window;
        window.resize(defaultSize);
        sizes.follow(window, u"main"_s);
        EXPECT_EQ(window.size(), expected);
        window.show();
        window.resize(410, 310);
        window.close();
    }
}

TEST_F(WindowSizesTest, KnowsAWindowByItsId)
{
    WindowSizes sizes(path);
    QWidget first;
    sizes.follow(first, u"first"_s);
    first.show();
    first.resize(410, 310);
    first.close();
    QWidget second;
    second.resize(defaultSize);
    sizes.follow(second, u"second"_s);
    EXPECT_EQ(second.size(), defaultSize);
}

TEST_F(WindowSizesTest, RemembersThatAWindowWasMaximisedAndItsSizeBefore)
{
    {
        ProgramRun run(path);
        run.window().resize(410, 310);
        run.window().showMaximized();
        ASSERT_TRUE(eventually([&] { return run.window().size() != QSize(410, 310); }));
        run.window().close();
    }
    {
        ProgramRun run(path);
        EXPECT_TRUE(run.window().isMaximized());
        run.window().close();
    }
    ProgramRun run(path);
    run.window().showNormal();
    EXPECT_TRUE(eventually([&] { return run.window().size() == QSize(410, 310); }));
}

TEST_F(WindowSizesTest, WritesNothingUntilAWindowIsClosed)
{
    QWidget window;
    {
        WindowSizes sizes(path);
        sizes.follow(window, u"main"_s);
        ASSERT_TRUE(showActive(window));
        window.resize(410, 310);
        window.showMinimized();
        window.showNormal();
    }
    EXPECT_EQ(namesIn(folder.path()), QStringList());
}

TEST_F(WindowSizesTest, MakesTheFolderOfItsFile)
{
    const QString deep = folder.filePath(u"not/there/windows.json"_s);
    {
        ProgramRun run(deep);
        run.window().resize(410, 310);
        run.window().close();
    }
    EXPECT_EQ(readWindowSizes(deep).value(u"main"_s), (KeptWindowSize{QSize(410, 310), false}));
}

TEST_F(WindowSizesTest, LeavesTheEntriesOfOthers)
{
    ProgramRun run(path);
    // Another copy of the program that runs at the same time.
    writeWindowSize(path, u"other"_s, {QSize(500, 400), true});
    run.window().resize(410, 310);
    run.window().close();
    EXPECT_TRUE(eventually([this] { return readWindowSizes(path).size() == 2; }));
    EXPECT_EQ(readWindowSizes(path).value(u"other"_s), (KeptWindowSize{QSize(500, 400), true}));
}

TEST_F(WindowSizesTest, MakesNoWindowLargerThanTheScreen)
{
    const QSize screen = QGuiApplication::primaryScreen()->availableSize();
    EXPECT_EQ(sizeAfter(entry("16000", "150")), QSize(screen.width(), 150));
    EXPECT_EQ(sizeAfter(entry("150", "16000")), QSize(150, screen.height()));
}

TEST_F(WindowSizesTest, MakesNoWindowSmallerThanItMayBe)
{
    writeFile(path, entry("20", "20"));
    WindowSizes sizes(path);
    QWidget window;
    window.setMinimumSize(200, 100);
    sizes.follow(window, u"main"_s);
    EXPECT_EQ(window.size(), QSize(200, 100));
}

TEST_F(WindowSizesTest, TakesNothingFromADamagedFile)
{
    for (const QByteArray &contents :
         {QByteArray(), QByteArray("no JSON"), QByteArray("[1, 2]"), QByteArray("{\"main\": 7}"),
          QByteArray("{\"main\": {\"width\": 400}}"), entry("\"400\"", "300"), entry("-400", "300"),
          entry("400", "0"), entry("400.5", "300"), entry("1e300", "300"), entry("400", "300").chopped(1),
          QByteArray(QByteArray(1 << 20, ' ') + entry("400", "300"))})
        EXPECT_EQ(sizeAfter(contents), defaultSize) << contents.left(100).toStdString();
}

TEST_F(WindowSizesTest, ReplacesADamagedFile)
{
    writeFile(path, "no JSON");
    {
        ProgramRun run(path);
        run.window().resize(410, 310);
        run.window().close();
    }
    EXPECT_EQ(ProgramRun(path).window().size(), QSize(410, 310));
}

TEST_F(WindowSizesTest, WaitsForNoPipe)
{
    ASSERT_EQ(::mkfifo(QFile::encodeName(path).constData(), S_IRUSR | S_IWUSR), 0);
    EXPECT_EQ(ProgramRun(path).window().size(), defaultSize);
}

TEST_F(WindowSizesTest, DoesWithoutAFileThatCantBeWritten)
{
    writeFile(folder.filePath(u"taken"_s), "in the way");
    const QString impossible = folder.filePath(u"taken/windows.json"_s);
    ProgramRun run(impossible);
    run.window().resize(410, 310);
    EXPECT_TRUE(run.window().close());
}

} // namespace tonearm
