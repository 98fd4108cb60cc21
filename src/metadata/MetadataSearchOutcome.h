// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "workflow/records/MetadataSource.h"
#include "workflow/records/ReleaseInfo.h"

#include <QList>
#include <QString>

namespace tonearm {

/// What a search over all services brought.
struct MetadataSearchOutcome
{
    /// Tells that a service gave no answer.
    struct Notice
    {
        MetadataSource source = MetadataSource::musicBrainz;
        /// What went wrong and what can be done about it, in sentences.
        QString message = {};
        /// Whether the service refuses the program as such.
        bool isConfigurationIssue = false;

        bool operator==(const Notice &) const = default;
    };

    QList<ReleaseInfo> releases = {};
    QList<Notice> notices = {};

    bool operator==(const MetadataSearchOutcome &) const = default;
};

} // namespace tonearm
