// SPDX-License-Identifier: GPL-3.0-or-later
#include "e2e/ShownWindow.h"

#include "helpers/Await.h"
#include "support/ResourceFolder.h"

#include <QMenuBar>

namespace tonearm::test {

using namespace Qt::StringLiterals;

MainWindowHolder::MainWindowHolder(AppModel &model)
    : m_genres(resourceFolder().value_or(QString()) + u"/Genres.json"_s)
    , m_mainWindow(model, m_genres)
{
}

ShownWindow::ShownWindow(AppModel &model)
    : MainWindowHolder(model)
    , WindowUser(m_mainWindow)
{
}

void ShownWindow::resizeContent(const QSize &size)
{
    m_mainWindow.resize(size + QSize(0, m_mainWindow.menuBar()->height()));
}

QLineEdit &ShownWindow::titleBox(int chapter)
{
    return box(u"Song title for chapter %1"_s.arg(chapter));
}

ScriptedWindowTest::ScriptedWindowTest(const QList<ChapterMark> &chapters)
    : tools(chapters)
{
}

void ScriptedWindowTest::holdEncoding()
{
    tools.setEncoding(ScriptedTools::waiting("go") + "echo sound > \"$output\"");
}

void ScriptedWindowTest::startHeldJob()
{
    holdEncoding();
    surroundings.prepareJob(tools.source());
    click(window.button(u"Encode to FLAC"_s));
    ASSERT_TRUE(eventually([this] { return tools.hasStarted(1); }));
}

QList<ChapterInfo> chaptersTitled(const QStringList &titles)
{
    constexpr double length = 10;
    QList<ChapterInfo> chapters;
    for (const QString &title : titles) {
        ChapterInfo chapter;
        chapter.id = chapters.size();
        chapter.startSeconds = static_cast<double>(chapters.size()) * length;
        chapter.endSeconds = chapter.startSeconds + length;
        chapter.originalTitle = title;
        chapter.mappedTitle = title;
        chapters.append(chapter);
    }
    return chapters;
}

} // namespace tonearm::test
