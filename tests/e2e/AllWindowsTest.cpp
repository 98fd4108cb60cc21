// SPDX-License-Identifier: GPL-3.0-or-later
// The windows of the whole application, opened from the main one.
#include "app/TonearmApp.h"
#include "helpers/ModelFixture.h"
#include "helpers/Printing.h"
#include "helpers/Widgets.h"

#include <gtest/gtest.h>

#include <QApplication>
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

// Edits would go with the program.
TEST_F(AllWindows, KeepTheProgramRunningOnlyForWorkInThem)
{
    Q_EMIT mainWindow().editorRequested();
    Q_EMIT mainWindow().settingsRequested();
    EXPECT_TRUE(mainWindow().testAttribute(Qt::WA_QuitOnClose));
    EXPECT_TRUE(shown(u"Edit Metadata"_s).value(0)->testAttribute(Qt::WA_QuitOnClose));
    EXPECT_FALSE(shown(u"Settings"_s).value(0)->testAttribute(Qt::WA_QuitOnClose));
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
