// SPDX-License-Identifier: GPL-3.0-or-later
#include "sample/ScreenshotTour.h"

#include "app/TonearmApp.h"
#include "helpers/Widgets.h"
#include "sample/SampleJob.h"

#include <QApplication>
#include <QLineEdit>
#include <QMenu>
#include <QTabWidget>
#include <QTest>

#include <stdexcept>
#include <utility>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

constexpr int patienceMilliseconds = 60000;
// Banners slide and buttons fade for less than that.
constexpr int restMilliseconds = 500;

void expect(bool isSo, const QString &what)
{
    if (!isSo)
        throw std::runtime_error(what.toStdString());
}

QString fileName(const QString &words)
{
    return words.toLower().replace(u' ', u'-');
}

} // namespace

ScreenshotTour::ScreenshotTour(TonearmApp &app, QString folder, QString suffix)
    : m_app(app)
    , m_folder(std::move(folder))
    , m_suffix(std::move(suffix))
{
}

void ScreenshotTour::showJob(const QString &source, const QString &cover, const QString &output)
{
    SampleJob job(m_app.mainWindow());
    job.chooseSource(source);
    job.chooseOutput(output);
    job.fillIn(u"Artist"_s, u"The Night Trains"_s);
    job.fillIn(u"Album Title"_s, u"Signals from the Coast"_s);
    job.fillIn(u"Year"_s, u"1974"_s);
    job.fillIn(u"Genre"_s, u"Jazz"_s);
    auto *well = test::named(m_app.mainWindow(), u"Cover art drop area"_s);
    expect(well && test::drop(*well, {QUrl::fromLocalFile(cover)}), u"the cover wasn't taken"_s);
    const auto hasCover = [this] { return m_app.model().coverArt.value().has_value(); };
    expect(QTest::qWaitFor(hasCover, patienceMilliseconds), u"the cover wasn't read"_s);
    job.encode(u"Encoded 3 tracks to Signals from the Coast"_s);
    keep(m_app.mainWindow(), u"main-window"_s);
    pickFromMenu(*well, u"View Artwork"_s);
    keep(window(u"Cover Art"_s), u"cover-art"_s);
}

void ScreenshotTour::showTagEditor(const QString &folder)
{
    Q_EMIT m_app.mainWindow().editorRequested();
    QWidget &editor = window(u"Edit Metadata"_s);
    MetadataEditorModel &model = m_app.metadataEditor();
    model.openFolder(QUrl::fromLocalFile(folder));
    const auto isRead = [&model] { return !model.isLoading.value() && model.artworkCaption(); };
    expect(QTest::qWaitFor(isRead, patienceMilliseconds), u"the folder wasn't read"_s);
    model.setValue(u"Signals from the Coast (Remastered)"_s, EditableTagField::album);
    keep(editor, u"tag-editor"_s);
    auto *well = test::named(editor, u"Cover art drop area"_s);
    expect(well != nullptr, u"the tag editor has no well"_s);
    pickFromMenu(*well, u"View Artwork"_s);
    keep(window(u"Artwork"_s), u"artwork"_s);
    model.reset();
    editor.close();
}

void ScreenshotTour::showSettings()
{
    Q_EMIT m_app.mainWindow().settingsRequested();
    QWidget &settings = window(u"Settings"_s);
    auto *tabs = settings.findChild<QTabWidget *>();
    expect(tabs != nullptr, u"the settings have no tabs"_s);
    for (int tab = 0; tab < tabs->count(); ++tab) {
        tabs->setCurrentIndex(tab);
        keep(settings, u"settings-"_s + fileName(tabs->tabText(tab)));
    }
}

void ScreenshotTour::showAbout()
{
    Q_EMIT m_app.mainWindow().aboutRequested();
    QWidget &about = window(u"About Tonearm"_s);
    keep(about, u"about"_s);
    auto *licences = test::named(about, u"Show Licences…"_s);
    expect(licences != nullptr, u"About leads to no licences"_s);
    test::click(*licences);
    keep(window(u"Third-Party Licences"_s), u"licences"_s);
}

QWidget &ScreenshotTour::window(const QString &title)
{
    for (QWidget *widget : QApplication::topLevelWidgets()) {
        if (widget->isVisible() && widget->windowTitle() == title)
            return *widget;
    }
    throw std::runtime_error(QString(u"there is no window \""_s + title + u'"').toStdString());
}

void ScreenshotTour::pickFromMenu(QWidget &well, const QString &entry)
{
    well.setFocus();
    QTest::keyClick(&well, Qt::Key_Space);
    auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
    expect(menu != nullptr, u"the well has no menu"_s);
    for (QAction *action : menu->actions()) {
        if (action->text() == entry && action->isEnabled())
            action->trigger();
    }
    menu->close();
}

void ScreenshotTour::keep(QWidget &window, const QString &name)
{
    expect(test::showActive(window), u"a window didn't come up"_s);
    QTest::qWait(restMilliseconds);
    const QString file = m_folder + u'/' + name + u'-' + m_suffix + u".png"_s;
    expect(window.grab().save(file), QString(file + u" couldn't be written"_s));
}

} // namespace tonearm
