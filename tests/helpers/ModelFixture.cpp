// SPDX-License-Identifier: GPL-3.0-or-later
#include "helpers/ModelFixture.h"

#include "helpers/Await.h"
#include "support/ResourceFolder.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QDir>
#include <QThreadPool>

namespace tonearm {

void PrintTo(const WorkflowState &state, std::ostream *out)
{
    *out << "state " << int(state.kind()) << " \"" << state.errorText().toStdString() << '"';
}

} // namespace tonearm

namespace tonearm::test {

using namespace Qt::StringLiterals;

namespace {

constexpr std::chrono::milliseconds shortInterval{1};

} // namespace

ServiceAddresses ModelFixture::noServices()
{
    // The port that is reserved for throwing away.
    return servicesAt(u"http://127.0.0.1:9"_s);
}

ServiceAddresses ModelFixture::servicesAt(const QString &origin)
{
    return {origin, origin, origin, origin, origin};
}

QStringList ModelFixture::temporaryArtwork() const
{
    return QDir(path(u"Tonearm/Artwork"_s)).entryList(QDir::Files, QDir::Name);
}

ToolLocation bundledTools()
{
    return ToolLocation(resourceFolder());
}

QString ModelFixture::appVersion()
{
    return u"1.2.3"_s;
}

ModelFixture::ModelFixture()
    : ModelFixture(Options{})
{
}

ModelFixture::ModelFixture(const Options &options)
    : m_store(path(u"settings.json"_s))
    , m_settings(m_store)
    , m_artworkFolder(std::make_shared<ArtworkFolder>(m_folder.path()))
    , m_onlineServices(options.addresses, appVersion(), {shortInterval, shortInterval})
    , m_previewService(options.tools, m_folder.path())
    , m_previewPlayer(m_sounds)
    , m_discRipper(m_folder.path())
    , m_ejector(m_discScan)
{
    if (options.defaultOutputDirectory)
        m_settings.setDefaultOutputDirectory(options.defaultOutputDirectory);
    m_model = std::make_unique<AppModel>(m_settings, services(options));
    m_onJobChange = m_model->encodingTask.addNotifier([this] {
        if (!m_model->encodingTask.value())
            ++m_endedJobs;
    });
}

AppModel::Services ModelFixture::services(const Options &options)
{
    return {
        .tools = options.tools,
        .processRunner = {},
        .chapterExtractor = ChapterExtractionService(options.tools),
        .encoder = AudioEncodingService(options.tools),
        .metadataSearch = m_onlineServices.metadataSearch(),
        .coverArtService = m_onlineServices.coverArt(),
        .artworkFolder = m_artworkFolder,
        .previewService = m_previewService,
        .previewPlayer = m_previewPlayer,
        .discService = m_discScan,
        .discRipper = m_discRipper,
        .secureRipper = m_secureReader,
        .discEjector = m_ejector,
        .panels = m_panels,
        .fileViewer = m_fileViewer,
        .appVersion = appVersion(),
        .announcementTime = options.announcementTime,
    };
}

ModelFixture::~ModelFixture()
{
    dropModel();
}

void ModelFixture::dropModel()
{
    m_onJobChange = {};
    m_model.reset();
}

QString ModelFixture::outputPath(const QString &name) const
{
    return QDir::cleanPath(path(u"out"_s) + u'/' + name);
}

void ModelFixture::findTools()
{
    m_model->checkFFmpeg();
    ASSERT_TRUE(eventually([this] { return !m_model->ffmpegCheckTask.value(); }));
    ASSERT_TRUE(m_model->isFFmpegInstalled());
}

void ModelFixture::loadFile(const QString &path)
{
    m_model->loadFile(QUrl::fromLocalFile(path));
    ASSERT_TRUE(eventually(
        [this] { return m_model->currentState.value().kind() != WorkflowState::Kind::extractingChapters; }));
}

void ModelFixture::prepareJob(const QString &source)
{
    ASSERT_TRUE(QDir().mkpath(outputPath()));
    m_model->outputFolderURL = QUrl::fromLocalFile(outputPath());
    ASSERT_NO_FATAL_FAILURE(findTools());
    ASSERT_NO_FATAL_FAILURE(loadFile(source));
    ASSERT_TRUE(m_model->canEncode()) << m_model->statusText().toStdString();
}

void ModelFixture::runJob()
{
    m_model->startEncoding();
    waitForJobEnd();
}

void ModelFixture::waitForJobStart()
{
    ASSERT_TRUE(eventually([this] { return m_model->encodingTask.value().has_value(); }));
}

void ModelFixture::waitForJobEnd()
{
    constexpr int patienceMilliseconds = 60000;
    ++m_awaitedJobs;
    ASSERT_TRUE(eventually([this] { return m_endedJobs >= m_awaitedJobs; }, patienceMilliseconds));
}

void ModelFixture::settle()
{
    // A task starts from the event loop, looks at the disk on a pool thread and comes back.
    constexpr int handOvers = 4;
    for (int step = 0; step < handOvers; ++step) {
        QCoreApplication::processEvents();
        QThreadPool::globalInstance()->waitForDone();
    }
    QCoreApplication::processEvents();
}

} // namespace tonearm::test
