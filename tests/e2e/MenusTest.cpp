// SPDX-License-Identifier: GPL-3.0-or-later
// The menus in the window: from wherever the keyboard is, and not behind a question.
#include "e2e/ShownWindow.h"

#include "app/TonearmApp.h"
#include "helpers/Await.h"
#include "helpers/Printing.h"

#include <QApplication>
#include <QDesktopServices>
#include <QMenuBar>
#include <QSignalSpy>
#include <QTemporaryDir>

namespace tonearm {

using namespace Qt::StringLiterals;
using namespace test;

namespace {

using MenusTest = ScriptedWindowTest;

/// Stands in for the desktop's browser.
class Browser : public QObject
{
    Q_OBJECT

public:
    Browser() { QDesktopServices::setUrlHandler(u"https"_s, this, "open"); }

    ~Browser() override { QDesktopServices::unsetUrlHandler(u"https"_s); }

    Q_INVOKABLE void open(const QUrl &page) { pages.append(page); }

    QList<QUrl> pages;
};

} // namespace

TEST_F(MenusTest, WorkFromEveryStopOfTheKeyboard)
{
    surroundings.prepareJob(tools.source());
    const QList<QWidget *> stops = {&window.box(u"Artist"_s), &window.box(u"Genre"_s), &window.titleBox(2),
                                    &window.find(u"Cover art drop area"_s),
                                    &window.button(u"Encode to FLAC"_s)};
    for (QWidget *stop : stops) {
        stop->setFocus();
        press(Qt::Key_I, Qt::ControlModifier);
        EXPECT_TRUE(eventually([this] { return surroundings.panels().openCount() == 1; }))
            << accessibleNameOf(*stop).toStdString();
        surroundings.panels().answer(std::nullopt);
    }
}

TEST_F(MenusTest, DontWorkBehindAQuestion)
{
    startHeldJob();
    model.alert = AlertContent(u"Title"_s, u"Message"_s);
    window.dialog();
    for (const Qt::Key key : {Qt::Key_I, Qt::Key_O, Qt::Key_Period, Qt::Key_W, Qt::Key_Q})
        press(key, Qt::ControlModifier);
    surroundings.settle();
    EXPECT_TRUE(surroundings.panels().requests().isEmpty());
    EXPECT_FALSE(model.pendingClose.value());
    EXPECT_TRUE(model.alert.value());
    EXPECT_TRUE(model.encodingTask.value());
    window.answer(u"OK"_s);
    window.waitUntilUndisturbed();
    press(Qt::Key_Period, Qt::ControlModifier);
    surroundings.waitForJobEnd();
    EXPECT_EQ(model.statusText(), u"Encoding cancelled."_s);
}

TEST_F(MenusTest, DontWorkBehindTheSheetOfReleases)
{
    model.isShowingSearchResults = true;
    ASSERT_TRUE(eventually([this] { return !window.window().isActiveWindow(); }));
    press(Qt::Key_I, Qt::ControlModifier);
    press(Qt::Key_W, Qt::ControlModifier);
    surroundings.settle();
    EXPECT_TRUE(surroundings.panels().requests().isEmpty());
    EXPECT_TRUE(window.window().isVisible());
}

TEST_F(MenusTest, EditTheBoxThatHasTheFocus)
{
    window.fillIn(u"Artist"_s, u"The Artist"_s);
    window.box(u"Artist"_s).selectAll();
    press(Qt::Key_E, Qt::AltModifier);
    QWidget *menu = QApplication::activePopupWidget();
    ASSERT_TRUE(menu);
    QTest::keyClick(menu, Qt::Key_T);
    EXPECT_EQ(model.artist.value(), QString());
}

TEST_F(MenusTest, AskForTheOtherWindows)
{
    const QSignalSpy editor(&window.window(), &MainWindow::editorRequested);
    const QSignalSpy settings(&window.window(), &MainWindow::settingsRequested);
    const QSignalSpy about(&window.window(), &MainWindow::aboutRequested);
    const QSignalSpy help(&window.window(), &MainWindow::helpRequested);
    for (const QAction *title : window.window().menuBar()->actions())
        for (QAction *entry : title->menu()->actions())
            if (QStringList{u"Edit &Metadata…"_s, u"Pr&eferences…"_s, u"&About Tonearm"_s, u"Tonearm &Help"_s}
                    .contains(entry->text()))
                entry->trigger();
    for (const QSignalSpy *requested : {&editor, &settings, &about, &help})
        EXPECT_EQ(requested->size(), 1);
}

TEST(HelpEntry, OpensThePageOfTheProject)
{
    Browser browser;
    const QTemporaryDir folder;
    TonearmApp app(folder.filePath(u"settings.json"_s), folder.filePath(u"windows.json"_s), std::nullopt,
                   ModelFixture::noServices());
    ASSERT_TRUE(showActive(app.mainWindow()));
    press(Qt::Key_F1);
    EXPECT_EQ(browser.pages, QList{QUrl(u"https://tonearm.example/help"_s)});
}

} // namespace tonearm

#include "MenusTest.moc"
