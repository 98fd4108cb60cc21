// SPDX-License-Identifier: GPL-3.0-or-later
#include "e2e/ShownWindow.h"

#include "helpers/Await.h"
#include "support/ResourceFolder.h"

namespace tonearm::test {

using namespace Qt::StringLiterals;

namespace {

[[noreturn]] void fail(const QString &what)
{
    throw std::runtime_error(what.toStdString());
}

} // namespace

ShownWindow::ShownWindow(AppModel &model)
    : m_genres(resourceFolder().value_or(QString()) + u"/Genres.json"_s)
    , m_window(model, m_genres)
{
    if (!showActive(m_window))
        fail(u"the window didn't come up"_s);
}

QLineEdit &ShownWindow::titleBox(int chapter)
{
    return box(u"Song title for chapter %1"_s.arg(chapter));
}

void ShownWindow::fillIn(const QString &boxName, const QString &text)
{
    click(box(boxName));
    press(Qt::Key_A, Qt::ControlModifier);
    type(text);
}

void ShownWindow::waitFor(const QString &name)
{
    constexpr int patienceMilliseconds = 60000;
    if (!eventually([&] { return shows(name); }, patienceMilliseconds))
        fail(u"\"%1\" never showed"_s.arg(name));
}

QList<QMessageBox *> ShownWindow::dialogs()
{
    QList<QMessageBox *> open;
    for (auto *dialog : m_window.findChildren<QMessageBox *>())
        if (dialog->isVisible())
            open.append(dialog);
    return open;
}

QMessageBox &ShownWindow::dialog()
{
    if (!eventually([this] { return dialogs().size() == 1 && dialogs().first()->isActiveWindow(); }))
        fail(u"there are %1 dialogs"_s.arg(dialogs().size()));
    return *dialogs().first();
}

QAbstractButton &ShownWindow::buttonIn(const QMessageBox &dialog, const QString &text)
{
    for (QAbstractButton *button : dialog.buttons())
        if (accessibleNameOf(*button) == text)
            return *button;
    fail(u"the dialog has no \"%1\""_s.arg(text));
}

void ShownWindow::answer(const QString &buttonText)
{
    click(buttonIn(dialog(), buttonText));
}

void ShownWindow::waitUntilUndisturbed()
{
    if (!eventually([this] { return dialogs().isEmpty(); }))
        fail(u"there are %1 dialogs"_s.arg(dialogs().size()));
    // A window manager gives the focus back to the window by itself.
    if (!showActive(m_window))
        fail(u"the window didn't become active again"_s);
}

void ShownWindow::settle()
{
    // A layout that needs more or less room than before asks the one around it for that by an event.
    constexpr int deepest = 10;
    for (int level = 0; level < deepest; ++level)
        QCoreApplication::processEvents();
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
