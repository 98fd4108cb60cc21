// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tageditor/EditableAudioFile.h"
#include "tageditor/TagTools.h"
#include "tageditor/TagWrite.h"

#include <QCoroTask>

#include <QStringList>

#include <stop_token>

namespace tonearm {

/// See AudioFileTagService::preflight().
QCoro::Task<QStringList> tagsLostByRewrite(TagTools tools, EditableAudioFile file, TagWrite write,
                                           std::stop_token stop);

/// See AudioFileTagService::write().
QCoro::Task<QStringList> rewriteTags(TagTools tools, EditableAudioFile file, TagWrite write,
                                     bool allowingLoss, std::stop_token stop);

} // namespace tonearm
