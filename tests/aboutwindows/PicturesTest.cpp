// SPDX-License-Identifier: GPL-3.0-or-later
// Pictures of the About and licence windows for people to look at, light and dark.
#include "app/screens/aboutwindows/AboutView.h"
#include "app/screens/aboutwindows/LicenceWindow.h"
#include "helpers/Await.h"
#include "helpers/ModelFixture.h"
#include "helpers/PictureTest.h"
#include "support/ResourceFolder.h"

#include <QLabel>
#include <QListWidget>
#include <QPlainTextEdit>

namespace tonearm {

using namespace Qt::StringLiterals;
using namespace test;

namespace {

class AboutPictures : public PictureTest
{
protected:
    AboutPictures()
    {
        CDParanoiaInstallation paranoia;
        paranoia.versionSummary = u"cd-paranoia 10.2+2.0.1"_s;
        surroundings->cdParanoiaInstallation = paranoia;
    }

    void keepAbout(const FFmpegStatus &status, const QString &name)
    {
        surroundings->ffmpegStatus = status;
        AboutView view(surroundings.model(),
                       {.version = u"0.1.0"_s, .copyright = VersionRecord::ofApplication().copyright},
                       [](const QUrl &) {});
        keep(view, name);
    }

    ModelFixture surroundings;
};

class LicencePictures : public PictureTest
{
};

} // namespace

INSTANTIATE_TEST_SUITE_P(LightAndDark, AboutPictures, testing::Bool());
INSTANTIATE_TEST_SUITE_P(LightAndDark, LicencePictures, testing::Bool());

TEST_P(AboutPictures, OfToolsThatAreThere)
{
    FFmpegInstallation installation;
    installation.versionSummary = u"ffmpeg 5.1.6-0+deb12u1"_s;
    keepAbout(installation, u"about-installed"_s);
}

TEST_P(AboutPictures, OfToolsWithoutAVersion)
{
    FFmpegInstallation installation;
    installation.ffmpegURL =
        QUrl::fromLocalFile(u"/opt/a/rather/long/way/to/the/folder/of/tonearm/share/tonearm/bin/ffmpeg"_s);
    keepAbout(installation, u"about-path"_s);
}

TEST_P(AboutPictures, OfAFirstCheck)
{
    keepAbout(FFmpegChecking{}, u"about-checking"_s);
}

TEST_P(AboutPictures, OfMissingTools)
{
    surroundings->cdParanoiaInstallation = std::nullopt;
    keepAbout(FFmpegMissing{u"gone"_s}, u"about-missing"_s);
}

TEST_P(LicencePictures, OfTheShippedOnes)
{
    LicenceWindow window(resourceFolder());
    ASSERT_TRUE(eventually([&] {
        auto *text = window.findChild<QPlainTextEdit *>();
        return text && !text->toPlainText().isEmpty();
    }));
    keep(window, u"licences"_s);
}

TEST_P(LicencePictures, OfALicence)
{
    LicenceWindow window(resourceFolder());
    ASSERT_TRUE(eventually([&] { return window.findChild<QListWidget *>(); }));
    auto *list = window.findChild<QListWidget *>();
    const auto text = [&] { return window.findChild<QPlainTextEdit *>()->toPlainText(); };
    ASSERT_TRUE(eventually([&] { return !text().isEmpty(); }));
    const QString first = text();
    list->setCurrentRow(list->count() - 1);
    ASSERT_TRUE(eventually([&] { return !text().isEmpty() && text() != first; }));
    keep(window, u"licences-text"_s);
}

TEST_P(LicencePictures, OfNone)
{
    LicenceWindow window(std::nullopt);
    ASSERT_TRUE(eventually([&] { return window.findChild<QLabel *>(); }));
    keep(window, u"licences-none"_s);
}

} // namespace tonearm
