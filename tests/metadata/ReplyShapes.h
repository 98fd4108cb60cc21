// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "metadata/ReplyShape.h"

namespace tonearm::test {

// The services' replies as far as the program reads them.

ReplyShape musicBrainzReleases();
ReplyShape musicBrainzRelease();
ReplyShape discogsResults();
ReplyShape discogsRelease();

} // namespace tonearm::test
