// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tageditor/ArtworkFingerprint.h"
#include "tageditor/EditableAudioFile.h"
#include "tageditor/TagTools.h"

#include <QCoroTask>

#include <stop_token>

namespace tonearm {

/// See AudioFileTagService::fingerprint().
QCoro::Task<ArtworkFingerprint> extractedFingerprint(TagTools tools, EditableAudioFile file,
                                                     std::stop_token stop);

} // namespace tonearm
