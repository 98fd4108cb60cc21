// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/AppServices.h"

#include "platform/MountTable.h"
#include "tools/ProcessRunner.h"

#include <QCoreApplication>
#include <QDir>
#include <QStandardPaths>
#include <QUrl>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

// It lies beside this program.
QUrl volumeProgram()
{
    return QUrl::fromLocalFile(QCoreApplication::applicationDirPath() + u"/tonearm-cddafs"_s);
}

QString volumeFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation) + u"/tonearm"_s;
}

} // namespace

AppServices::AppServices(const std::optional<QString> &resourceFolder, const ServiceAddresses &addresses)
    : m_tools(resourceFolder)
    , m_genres(resourceFolder.value_or(QString()) + u"/Genres.json"_s)
    , m_artworkFolder(std::make_shared<ArtworkFolder>(QDir::tempPath()))
    , m_onlineServices(addresses, QStringLiteral(TONEARM_VERSION))
    , m_previewService(m_tools, QDir::tempPath())
    , m_previewPlayer(m_sounds)
    , m_discService(std::make_shared<MountTable>())
    , m_discRipper(QDir::tempPath())
    , m_secureRipper(m_tools, QDir::tempPath())
    , m_drives(volumeProgram(), volumeFolder())
{
}

AppModel::Services AppServices::forJobs()
{
    return {.tools = m_tools,
            .processRunner = {},
            .chapterExtractor = ChapterExtractionService(m_tools),
            .encoder = AudioEncodingService(m_tools),
            .metadataSearch = m_onlineServices.metadataSearch(),
            .coverArtService = m_onlineServices.coverArt(),
            .artworkFolder = m_artworkFolder,
            .previewService = m_previewService,
            .previewPlayer = m_previewPlayer,
            .discService = m_discService,
            .discRipper = m_discRipper,
            .secureRipper = m_secureRipper,
            .discEjector = m_drives,
            .panels = m_panels,
            .fileViewer = m_fileViewer,
            .appVersion = QStringLiteral(TONEARM_VERSION)};
}

MetadataEditorModel::Services AppServices::forTags()
{
    return {.tools = m_tools,
            .tagService = AudioFileTagService(m_tools, QDir::tempPath()),
            .artworkFolder = m_artworkFolder,
            .genres = m_genres,
            .panels = m_panels};
}

} // namespace tonearm
