// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/mainwindow/MainWindow.h"

#include "app/screens/elements/Bind.h"
#include "app/screens/mainwindow/ContentView.h"
#include "app/screens/mainwindow/MainWindowQuestions.h"
#include "app/screens/releases/ReleaseResultsSheet.h"
#include "workflow/AppModel.h"

#include <QCloseEvent>
#include <QShortcut>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

constexpr QSize defaultSize(940, 940);
constexpr QSize smallestSize(820, 900);

} // namespace

MainWindow::MainWindow(AppModel &model, const GenreCatalog &genres)
    : m_model(model)
{
    setWindowTitle(u"Tonearm"_s);
    setMinimumSize(smallestSize);
    resize(defaultSize);
    auto *content = new ContentView(model, genres, this);
    connect(content, &ContentView::coverArtRequested, this, &MainWindow::coverArtRequested);
    setCentralWidget(content);
    showReleaseResults(this, model);
    showQuestions(this, model);

    addShortcut(Qt::CTRL | Qt::Key_I, [&model] { model.chooseInputFile(); });
    addShortcut(Qt::CTRL | Qt::Key_O, [&model] { model.chooseOutputFolder(); });
    addShortcut(Qt::CTRL | Qt::Key_E, [&model] { model.startEncoding(); });
    addShortcut(Qt::CTRL | Qt::Key_Period, [&model] { model.cancelEncoding(); });
    for (const Qt::Key key : {Qt::Key_W, Qt::Key_Q})
        addShortcut(Qt::CTRL | key, [this] { close(); });

    // Once the job that held the window open has ended.
    bind(
        this, [&model] { return model.isReadyToClose(); },
        [](MainWindow *window, bool isReady) {
            if (isReady)
                QMetaObject::invokeMethod(window, &QWidget::close, Qt::QueuedConnection);
        });
}

void MainWindow::addShortcut(const QKeySequence &keys, const std::function<void()> &action)
{
    connect(new QShortcut(keys, this), &QShortcut::activated, this, action);
}

void MainWindow::closeEvent(QCloseEvent *event)
{
    event->setAccepted(m_model.requestClose());
}

} // namespace tonearm
