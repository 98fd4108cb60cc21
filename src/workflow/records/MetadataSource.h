// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace tonearm {

/// The online services that describe releases.
enum class MetadataSource { musicBrainz, discogs };

/// The service's own name, for the user.
QString displayName(MetadataSource source);

} // namespace tonearm
