// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/settings/AppSettings.h"
#include "app/settings/SettingsStore.h"
#include "artwork/ArtworkFolder.h"
#include "disc/DiscRippingService.h"
#include "encoding/AudioPreviewPlayer.h"
#include "encoding/ChapterPreviewService.h"
#include "helpers/FakeDiscs.h"
#include "helpers/FakeFileViewer.h"
#include "helpers/FakePanels.h"
#include "metadata/OnlineServices.h"
#include "tools/ToolLocation.h"
#include "workflow/AppModel.h"

#include <QPropertyNotifier>
#include <QString>
#include <QTemporaryDir>
#include <QUrl>

#include <chrono>
#include <memory>
#include <optional>
#include <ostream>

namespace tonearm {

// GoogleTest's name.
void PrintTo(const WorkflowState &state, std::ostream *out); // NOLINT(readability-identifier-naming)

} // namespace tonearm

namespace tonearm::test {

/// The tools that ship with the application.
ToolLocation bundledTools();

/// The main window's model in surroundings of its own: a temporary folder, in which the settings lie
/// too, and panels and a file viewer that the test plays. All of it goes with the fixture.
class ModelFixture
{
public:
    struct Options
    {
        ToolLocation tools = bundledTools();
        std::chrono::milliseconds announcementTime{20};
        std::optional<QUrl> defaultOutputDirectory = {};
        /// Where the online services are; by default nowhere.
        ServiceAddresses addresses = noServices();
    };

    /// Addresses at which nobody answers.
    static ServiceAddresses noServices();

    /// All services at one origin.
    static ServiceAddresses servicesAt(const QString &origin);

    /// The version that the logs tell.
    static QString appVersion();

    ModelFixture();
    explicit ModelFixture(const Options &options);
    ~ModelFixture();
    ModelFixture(const ModelFixture &) = delete;
    ModelFixture &operator=(const ModelFixture &) = delete;

    AppModel &model() { return *m_model; }

    AppModel *operator->() { return m_model.get(); }

    /// Destroys the model before its surroundings.
    void dropModel();

    AppSettings &settings() { return m_settings; }

    FakePanels &panels() { return m_panels; }

    const FakeFileViewer &fileViewer() const { return m_fileViewer; }

    /// What is in the machine; the model sees it at its next look.
    FakeDiscScan &discScan() { return m_discScan; }

    FakeReader &secureReader() { return m_secureReader; }

    FakeEjector &ejector() { return m_ejector; }

    SilentSounds &sounds() { return m_sounds; }

    /// A place in the temporary folder.
    QString path(const QString &name) const { return m_folder.filePath(name); }

    QUrl url(const QString &name) const { return QUrl::fromLocalFile(path(name)); }

    /// The names of what lies in the folder for artwork.
    QStringList temporaryArtwork() const;

    /// A place in "out", the output folder of prepareJob.
    QString outputPath(const QString &name = {}) const;

    // These run the event loop until the work that they start has ended, and fail the test if it
    // doesn't.

    void findTools();
    void loadFile(const QString &path);
    /// Makes the folder "out" the output folder, finds the tools and loads a source.
    void prepareJob(const QString &source);
    void runJob();
    void waitForJobStart();
    /// Waits for the end of one job more than the call before.
    void waitForJobEnd();

    /// Carries out all that the model has begun except what waits for a child program, a panel or a
    /// timer. What hasn't happened then won't.
    void settle();

private:
    AppModel::Services services(const Options &options);

    QTemporaryDir m_folder;
    SettingsStore m_store;
    AppSettings m_settings;
    FakePanels m_panels;
    FakeFileViewer m_fileViewer;
    std::shared_ptr<ArtworkFolder> m_artworkFolder;
    OnlineServices m_onlineServices;
    ChapterPreviewService m_previewService;
    SilentSounds m_sounds;
    AudioPreviewPlayer m_previewPlayer;
    FakeDiscScan m_discScan;
    DiscRippingService m_discRipper;
    FakeReader m_secureReader;
    FakeEjector m_ejector;
    std::unique_ptr<AppModel> m_model;
    int m_endedJobs = 0;
    int m_awaitedJobs = 0;
    QPropertyNotifier m_onJobChange;
};

} // namespace tonearm::test
