// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/TonearmApp.h"
#include "helpers/Await.h"
#include "helpers/Sources.h"
#include "helpers/Widgets.h"
#include "support/ResourceFolder.h"

#include <gtest/gtest.h>

#include <QMessageBox>
#include <QTemporaryDir>

namespace tonearm::test {

using namespace Qt::StringLiterals;

namespace {

struct OpenFile : testing::Test
{
    QTemporaryDir folder;
    TonearmApp app{folder.filePath(u"settings.json"_s), folder.filePath(u"windows.json"_s), resourceFolder()};

    // As main() does.
    void openWith(const QString &path)
    {
        app.openMainWindow();
        app.openFile(QUrl::fromLocalFile(path));
    }

    bool shows(const QString &name) { return named(app.mainWindow(), name) != nullptr; }
};

} // namespace

TEST_F(OpenFile, TheWindowComesUpWithTheChaptersOfTheFile)
{
    openWith(plainSource());

    EXPECT_TRUE(eventually([this] { return shows(u"Song title for chapter 2"_s); }));
    EXPECT_TRUE(shows(u"Song title for chapter 1"_s));
}

TEST_F(OpenFile, AFileOfAnotherKindIsDeclinedInTheWindow)
{
    openWith(folder.filePath(u"song.mp3"_s));

    EXPECT_TRUE(app.model().alert.value());
    EXPECT_TRUE(eventually([this] { return app.mainWindow().findChild<QMessageBox *>() != nullptr; }));
}

TEST_F(OpenFile, AFileThatIsNotThereIsToldOfInTheWindow)
{
    openWith(folder.filePath(u"gone.mkv"_s));

    EXPECT_TRUE(eventually([this] { return app.mainWindow().findChild<QMessageBox *>() != nullptr; }));
    EXPECT_FALSE(shows(u"Song title for chapter 1"_s));
}

} // namespace tonearm::test
