// SPDX-License-Identifier: GPL-3.0-or-later
// Pictures of the tabs for people to look at, light and dark.
#include "app/screens/settingswindow/SettingsView.h"

#include "app/settings/AppSettings.h"
#include "helpers/FakePanels.h"
#include "helpers/PictureTest.h"

#include <QDir>
#include <QTabWidget>
#include <QTemporaryDir>

namespace tonearm {

using namespace Qt::StringLiterals;
using namespace test;

namespace {

class SettingsPictures : public PictureTest
{
protected:
    void keepTab(int index, const QString &name)
    {
        SettingsView view(settings, panels);
        view.findChild<QTabWidget *>()->setCurrentIndex(index);
        keep(view, name);
    }

    QTemporaryDir folder;
    SettingsStore store{folder.filePath(u"settings.json"_s)};
    AppSettings settings{store};
    FakePanels panels;
};

} // namespace

INSTANTIATE_TEST_SUITE_P(LightAndDark, SettingsPictures, testing::Bool());

TEST_P(SettingsPictures, OfFileOutput)
{
    keepTab(0, u"settings-file-output"_s);
}

TEST_P(SettingsPictures, OfFileOutputWithAFolder)
{
    settings.setDefaultOutputDirectory(QUrl::fromLocalFile(
        u"/home/someone/Music/Lossless/A folder with a name that goes on for a good while/Rips"_s));
    keepTab(0, u"settings-file-output-folder"_s);
}

TEST_P(SettingsPictures, OfAudioCDs)
{
    keepTab(1, u"settings-audio-cds"_s);
}

TEST_P(SettingsPictures, OfMetadata)
{
    keepTab(2, u"settings-metadata"_s);
}

TEST_P(SettingsPictures, OfAChangeThatIsNotStored)
{
    ASSERT_TRUE(QDir(folder.path()).mkpath(u"settings.json/in the way"_s));
    settings.setVerifyRipsByRereading(true);
    ASSERT_TRUE(settings.saveFailure());
    keepTab(1, u"settings-not-stored"_s);
}

} // namespace tonearm
