// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/mainwindow/MainWindow.h"

#include "app/screens/elements/Bind.h"
#include "app/screens/elements/ClosingWindows.h"
#include "app/screens/mainwindow/ContentView.h"
#include "app/screens/mainwindow/MainWindowQuestions.h"
#include "app/screens/menus/MenuBar.h"
#include "app/screens/releases/ReleaseResultsSheet.h"
#include "workflow/AppModel.h"

#include <QCloseEvent>
#include <QLayout>
#include <QScreen>
#include <QWindow>

#include <algorithm>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

// Of what lies below the menus.
constexpr QSize defaultSize(940, 940);
constexpr QSize smallestSize(820, 900);
// More than most desktops' title bar and border take, which isn't known before the window stands.
constexpr int frameHeight = 40;

} // namespace

MainWindow::MainWindow(AppModel &model, const GenreCatalog &genres)
    : m_model(model)
{
    setWindowTitle(u"Tonearm"_s);
    addMenus();
    addContent(genres);
    resize(defaultSize + QSize(0, menuBar()->sizeHint().height()));
    showReleaseResults(this, model);
    showQuestions(this, model);
    closeAfterJob();
}

void MainWindow::addMenus()
{
    auto *menus = new MenuBar(m_model, this);
    connect(menus, &MenuBar::closeRequested, this, &QWidget::close);
    connect(menus, &MenuBar::quitRequested, this, [this] { closeAllWindows(*this); });
    connect(menus, &MenuBar::editorRequested, this, &MainWindow::editorRequested);
    connect(menus, &MenuBar::settingsRequested, this, &MainWindow::settingsRequested);
    connect(menus, &MenuBar::aboutRequested, this, &MainWindow::aboutRequested);
    connect(menus, &MenuBar::helpRequested, this, &MainWindow::helpRequested);
    setMenuBar(menus);
}

void MainWindow::addContent(const GenreCatalog &genres)
{
    auto *content = new ContentView(m_model, genres, this);
    content->setMinimumSize(smallestSize);
    connect(content, &ContentView::coverArtRequested, this, &MainWindow::coverArtRequested);
    setCentralWidget(content);
}

void MainWindow::keepWithin(const QSize &room)
{
    const int height = room.height() - frameHeight;
    const int contentHeight = height - menuBar()->sizeHint().height();
    centralWidget()->setMinimumHeight(std::min(smallestSize.height(), contentHeight));
    // Only then does the window know that it may be smaller.
    layout()->activate();
    resize(width(), std::min(this->height(), height));
}

// As soon as there is a window that can be moved to another screen.
void MainWindow::showEvent(QShowEvent *event)
{
    QMainWindow::showEvent(event);
    connect(windowHandle(), &QWindow::screenChanged, this, &MainWindow::fitScreen, Qt::UniqueConnection);
}

void MainWindow::fitScreen(const QScreen *screen)
{
    if (screen)
        keepWithin(screen->availableSize());
}

// Once the job that held the window open has ended.
void MainWindow::closeAfterJob()
{
    bind(
        this, [this] { return m_model.isReadyToClose(); },
        [](MainWindow *window, bool isReady) {
            if (isReady)
                QMetaObject::invokeMethod(window, &QWidget::close, Qt::QueuedConnection);
        });
}

void MainWindow::closeEvent(QCloseEvent *event)
{
    event->setAccepted(m_model.requestClose() && m_mayClose());
}

} // namespace tonearm
