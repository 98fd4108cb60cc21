// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "artwork/ArtworkFolder.h"
#include "disc/DiscRippingService.h"
#include "disc/OpticalDiscService.h"
#include "disc/ParanoiaRippingService.h"
#include "encoding/AudioPreviewPlayer.h"
#include "encoding/ChapterPreviewService.h"
#include "metadata/OnlineServices.h"
#include "platform/DesktopFileViewer.h"
#include "platform/DesktopPanels.h"
#include "platform/OpticalDrives.h"
#include "platform/PulseSounds.h"
#include "tageditor/MetadataEditorModel.h"
#include "tools/ToolLocation.h"
#include "workflow/AppModel.h"
#include "workflow/records/GenreCatalog.h"

#include <QString>

#include <memory>
#include <optional>

namespace tonearm {

/// What the models work with: the services, and this desktop's form of the interfaces that they ask for. Has
/// to outlive the models.
class AppServices
{
public:
    /// Needs a QApplication. `resourceFolder` may be absent; the tools then are, too.
    AppServices(const std::optional<QString> &resourceFolder, const ServiceAddresses &addresses);

    AppModel::Services forJobs();
    MetadataEditorModel::Services forTags();

    const GenreCatalog &genres() const { return m_genres; }

    Panels &panels() { return m_panels; }

    OpticalDrives &drives() { return m_drives; }

private:
    ToolLocation m_tools;
    GenreCatalog m_genres;
    DesktopPanels m_panels;
    DesktopFileViewer m_fileViewer;
    std::shared_ptr<ArtworkFolder> m_artworkFolder;
    OnlineServices m_onlineServices;
    ChapterPreviewService m_previewService;
    PulseSounds m_sounds;
    AudioPreviewPlayer m_previewPlayer;
    OpticalDiscService m_discService;
    DiscRippingService m_discRipper;
    ParanoiaRippingService m_secureRipper;
    OpticalDrives m_drives;
};

} // namespace tonearm
