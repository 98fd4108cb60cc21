// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/records/MetadataSource.h"

namespace tonearm {

using namespace Qt::StringLiterals;

QString displayName(MetadataSource source)
{
    switch (source) {
    case MetadataSource::musicBrainz:
        return u"MusicBrainz"_s;
    case MetadataSource::discogs:
        return u"Discogs"_s;
    }
    Q_UNREACHABLE();
}

} // namespace tonearm
