// SPDX-License-Identifier: GPL-3.0-or-later
#include "e2e/discs/DiscRoad.h"

#include "app/screens/releases/ReleaseResultsSheet.h"
#include "e2e/discs/ShownDisc.h"
#include "helpers/Contents.h"
#include "helpers/Media.h"
#include "helpers/SmoothSound.h"
#include "platform/MountTable.h"
#include "support/ResourceFolder.h"

#include <discid/discid.h>

#include <QApplication>
#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTest>

#include <array>

namespace tonearm::test {

using namespace Qt::StringLiterals;

namespace {

constexpr int sectorBytes = 2352;
constexpr int leadInSectors = 150;
constexpr int patienceMilliseconds = 60000;

ReleaseResultsSheet *openSheet(const QWidget &window)
{
    for (auto *sheet : window.findChildren<ReleaseResultsSheet *>())
        if (sheet->isVisible() && sheet->isActiveWindow())
            return sheet;
    return nullptr;
}

QByteArray decoded(const QUrl &file)
{
    return outputOf(u"ffmpeg"_s, {u"-v"_s, u"error"_s, u"-nostdin"_s, u"-i"_s, file.toLocalFile(), u"-f"_s,
                                  u"s16le"_s, u"-"_s});
}

} // namespace

void DiscRoad::SetUp()
{
    SKIP_WITHOUT_MOUNTS();
    ASSERT_TRUE(QDir().mkpath(path(u"albums"_s)));
    ASSERT_TRUE(QDir().mkpath(path(u"discs"_s)));
    m_drives.addDrive(u"drive"_s);
    m_drives.appear();
}

void DiscRoad::start(bool isSecure)
{
    const QJsonObject settings{{u"defaultOutputDirectoryPath"_s, path(u"albums"_s)},
                               {u"organizeIntoArtistAlbumFolders"_s, false},
                               {u"ejectDiscAfterRipping"_s, true},
                               {u"verifyRipsByRereading"_s, true},
                               {u"useSecureCDRipping"_s, isSecure}};
    writeFile(path(u"settings.json"_s), QJsonDocument(settings).toJson());
    m_app.emplace(path(u"settings.json"_s), path(u"windows.json"_s), resourceFolder(),
                  ModelFixture::servicesAt(m_pages.origin()));
    // Large enough for all that it shows, however low the screen.
    m_app->mainWindow().keepWithin({1920, 1200});
    m_app->openMainWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&m_app->mainWindow()));
    ASSERT_TRUE(eventually([this] {
        return m_app->model().isFFmpegInstalled() &&
               m_app->model().cdParanoiaInstallation.value().has_value();
    }));
}

DiscImage DiscRoad::image(const QString &name, ImageRecipe recipe)
{
    recipe.title = name.toUtf8();
    DiscImage made(path(u"discs"_s), std::move(recipe), name);
    writeFile(made.binPath(), smoothSound(qint64{made.leadout()} * sectorBytes));
    return made;
}

QString DiscRoad::discIDOf(const DiscImage &image)
{
    std::array<int, 100> offsets = {image.leadout() + leadInSectors};
    for (int number = image.firstNumber(); number <= image.lastNumber(); ++number)
        offsets[static_cast<std::size_t>(number)] = image.start(number) + leadInSectors;
    DiscId *disc = discid_new();
    EXPECT_EQ(discid_put(disc, image.firstNumber(), image.lastNumber(), offsets.data()), 1);
    const QString id = QString::fromLatin1(discid_get_id(disc));
    discid_free(disc);
    return id;
}

void DiscRoad::addRelease(const QString &discID, const QStringList &titles)
{
    QJsonArray tracks;
    for (const QString &title : titles)
        tracks.append(QJsonObject{{u"title"_s, title}});
    const QJsonObject disc{
        {u"position"_s, 2}, {u"discs"_s, QJsonArray{QJsonObject{{u"id"_s, discID}}}}, {u"tracks"_s, tracks}};
    const QJsonArray media{QJsonObject{{u"position"_s, 1}}, disc, QJsonObject{{u"position"_s, 3}}};
    const QJsonObject release{{u"id"_s, u"the-release"_s},
                              {u"title"_s, u"The Album"_s},
                              {u"date"_s, u"1999-05-12"_s},
                              {u"artist-credit"_s, QJsonArray{QJsonObject{{u"name"_s, u"The Artist"_s}}}},
                              {u"media"_s, media}};
    const QJsonObject page{{u"releases"_s, QJsonArray{release}}};
    m_pages.server().answer("/ws/2/discid/" + discID.toUtf8(),
                            LoopbackResponse::json(QJsonDocument(page).toJson()));
}

void DiscRoad::insert(const DiscImage &image)
{
    m_drives.insert(u"drive"_s, image.path(), static_cast<uint>(image.lastNumber()));
}

void DiscRoad::takeOffer(const QString &volumeName)
{
    QWidget &window = m_app->mainWindow();
    ASSERT_TRUE(eventually([&] { return isOffered(window, volumeName); }, patienceMilliseconds));
    click(find<QPushButton>(u"Load Disc"_s));
    ASSERT_TRUE(eventually([this] { return m_app->model().isDiscSource(); }));
    ASSERT_TRUE(
        eventually([this] { return !m_app->model().isLoadingReleases.value(); }, patienceMilliseconds));
    ASSERT_TRUE(eventually([&] { return openSheet(window) != nullptr; }));
}

void DiscRoad::takeRelease()
{
    closeSheetBy(u"Use This Release"_s);
}

void DiscRoad::closeSheet()
{
    closeSheetBy(u"Close"_s);
}

void DiscRoad::closeSheetBy(const QString &buttonName)
{
    QWidget &window = m_app->mainWindow();
    auto *button = named<QPushButton>(*openSheet(window), buttonName);
    ASSERT_TRUE(button && button->isEnabled());
    click(*button);
    ASSERT_TRUE(eventually([&] { return !openSheet(window); }));
    // A window manager gives the focus back to the window by itself.
    ASSERT_TRUE(showActive(window));
}

void DiscRoad::startJob()
{
    auto &encode = find<QPushButton>(u"Encode to FLAC"_s);
    ASSERT_TRUE(encode.isEnabled());
    click(encode);
    ASSERT_TRUE(eventually([this] { return m_app->model().encodingTask.value().has_value(); }));
}

void DiscRoad::runJob()
{
    ASSERT_NO_FATAL_FAILURE(startJob());
    ASSERT_TRUE(
        eventually([this] { return !m_app->model().encodingTask.value(); }, 2 * patienceMilliseconds));
    ASSERT_TRUE(m_app->model().completion.value()) << m_app->model().statusText().toStdString();
}

void DiscRoad::expectTracks(const DiscImage &image)
{
    const QByteArray sectors = readFile(image.binPath());
    const QList<QUrl> files = m_app->model().encodedFiles.value();
    ASSERT_EQ(files.size(), image.lastNumber());
    for (int number = 1; number <= image.lastNumber(); ++number) {
        const int end = number == image.lastNumber() ? image.leadout() : image.start(number + 1);
        const QByteArray expected = sectors.mid(qsizetype{image.start(number)} * sectorBytes,
                                                qsizetype{end - image.start(number)} * sectorBytes);
        EXPECT_TRUE(decoded(files[number - 1]) == expected) << "track " << number;
    }
}

QString DiscRoad::log()
{
    const std::optional<QUrl> url = m_app->model().lastLogURL.value();
    return url ? QString::fromUtf8(readFile(url->toLocalFile())) : QString();
}

QStringList DiscRoad::volumes() const
{
    QStringList names;
    for (const MountedVolume &volume : MountTable().volumes())
        if (volume.url.path().startsWith(m_runtime.path()))
            names.append(volume.url.fileName());
    return names;
}

QStringList DiscRoad::leftRips() const
{
    return namesIn(path(u"Tonearm/Rips"_s)) + namesIn(path(u"Tonearm/SecureRips"_s));
}

} // namespace tonearm::test
