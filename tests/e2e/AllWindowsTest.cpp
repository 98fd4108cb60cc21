// SPDX-License-Identifier: GPL-3.0-or-later
// The windows of the whole application, opened from the main one.
#include "app/TonearmApp.h"
#include "helpers/ModelFixture.h"
#include "helpers/Printing.h"
#include "helpers/Widgets.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QImage>
#include <QPointer>
#include <QTemporaryDir>
#include <QTest>

#include <functional>

namespace tonearm {

using namespace Qt::StringLiterals;
using namespace test;

namespace {

class AllWindows : public testing::Test
{
protected:
    void SetUp() override { ASSERT_TRUE(showActive(m_app.mainWindow())); }

    static QList<QWidget *> shown(const QString &title)
    {
        QList<QWidget *> found;
        for (QWidget *window : QApplication::topLevelWidgets()) {
            if (window->isVisible() && window->windowTitle() == title)
                found.append(window);
        }
        return found;
    }

    // What `open` opens is there once, however often, and comes to the front.
    void expectOneWindow(const QString &title, const std::function<void()> &open, const QSize &size)
    {
        open();
        ASSERT_EQ(shown(title).size(), 1);
        QWidget *window = shown(title).first();
        EXPECT_EQ(window->size(), size);
        const QAccessibleInterface *described = QAccessible::queryAccessibleInterface(window);
        EXPECT_EQ(described->role(), QAccessible::Window);
        EXPECT_EQ(described->text(QAccessible::Name), title);
        ASSERT_TRUE(showActive(m_app.mainWindow()));
        open();
        EXPECT_EQ(shown(title), QList{window});
        EXPECT_TRUE(QTest::qWaitForWindowActive(window));
    }

    void openLicences()
    {
        Q_EMIT mainWindow().aboutRequested();
        click(*named(*shown(u"About Tonearm"_s).value(0), u"Show Licences…"_s));
    }

    MainWindow &mainWindow() { return m_app.mainWindow(); }

    QTemporaryDir m_folder;
    TonearmApp m_app{m_folder.filePath(u"settings.json"_s), m_folder.filePath(u"windows.json"_s),
                     std::nullopt, ModelFixture::noServices()};
};

} // namespace

TEST_F(AllWindows, AreOpenOnceEach)
{
    const auto sizeOf = [](const QString &title) { return shown(title).value(0)->size(); };
    Q_EMIT mainWindow().settingsRequested();
    expectOneWindow(
        u"Settings"_s, [this] { Q_EMIT mainWindow().settingsRequested(); }, sizeOf(u"Settings"_s));
    Q_EMIT mainWindow().aboutRequested();
    expectOneWindow(
        u"About Tonearm"_s, [this] { Q_EMIT mainWindow().aboutRequested(); }, sizeOf(u"About Tonearm"_s));
    expectOneWindow(u"Cover Art"_s, [this] { Q_EMIT mainWindow().coverArtRequested(); }, {620, 680});
    expectOneWindow(u"Edit Metadata"_s, [this] { Q_EMIT mainWindow().editorRequested(); }, {1000, 780});
    expectOneWindow(u"Artwork"_s,
                    [this] { Q_EMIT m_app.windows().metadataEditor()->artworkViewingRequested(); },
                    {620, 680});
    expectOneWindow(u"Third-Party Licences"_s, [this] { openLicences(); }, {780, 620});
    EXPECT_EQ(shown(u"About Tonearm"_s).size(), 1);
}

TEST_F(AllWindows, CostNothingWhenTheyAreClosed)
{
    Q_EMIT mainWindow().settingsRequested();
    ASSERT_EQ(shown(u"Settings"_s).size(), 1);
    const QPointer<QWidget> settings = shown(u"Settings"_s).first();
    EXPECT_TRUE(settings->close());
    EXPECT_TRUE(QTest::qWaitFor([&] { return settings.isNull(); }));
}

TEST_F(AllWindows, CloseWithTheMainWindow)
{
    Q_EMIT mainWindow().editorRequested();
    Q_EMIT mainWindow().settingsRequested();
    EXPECT_TRUE(mainWindow().close());
    EXPECT_TRUE(shown(u"Edit Metadata"_s).isEmpty());
    EXPECT_TRUE(shown(u"Settings"_s).isEmpty());
}

// They would go with the program.
TEST_F(AllWindows, StayWhileOneHasEditsToAskAbout)
{
    Q_EMIT mainWindow().editorRequested();
    MetadataEditorModel &editor = m_app.metadataEditor();
    EditableAudioFile file;
    file.url = QUrl(u"file:///a.flac"_s);
    editor.files = {file};
    editor.setSelection({file.url});
    editor.setValue(u"A"_s, EditableTagField::artist);
    EXPECT_FALSE(mainWindow().close());
    EXPECT_TRUE(mainWindow().isVisible());
    EXPECT_TRUE(editor.isConfirmingCancel.value());
    ASSERT_TRUE(m_app.windows().metadataEditor());
    EXPECT_TRUE(m_app.windows().metadataEditor()->isVisible());
    editor.reset();
}

TEST_F(AllWindows, KeepNoPictureOnceTheyAreClosed)
{
    Q_EMIT mainWindow().editorRequested();
    Q_EMIT m_app.windows().metadataEditor()->artworkViewingRequested();
    const QPointer<QWidget> viewer = shown(u"Artwork"_s).value(0);
    m_app.artworkViewer().image = QImage(20, 20, QImage::Format_RGB32);
    EXPECT_TRUE(viewer->close());
    ASSERT_TRUE(QTest::qWaitFor([&] { return viewer.isNull(); }));
    EXPECT_FALSE(m_app.artworkViewer().image.value());
}

TEST_F(AllWindows, RememberTheirSizes)
{
    openLicences();
    const QPointer<QWidget> licences = shown(u"Third-Party Licences"_s).value(0);
    licences->resize(740, 540);
    EXPECT_TRUE(licences->close());
    ASSERT_TRUE(QTest::qWaitFor([&] { return licences.isNull(); }));
    openLicences();
    EXPECT_EQ(shown(u"Third-Party Licences"_s).value(0)->size(), QSize(740, 540));
}

TEST_F(AllWindows, LeaveTheEditorsModelAloneAtTheStart)
{
    Q_EMIT mainWindow().editorRequested();
    EXPECT_FALSE(m_app.metadataEditor().hasLoadedFolder.value());
    EXPECT_TRUE(m_app.metadataEditor().files.value().isEmpty());
}

} // namespace tonearm
