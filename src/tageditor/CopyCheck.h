// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tageditor/ProbePayload.h"
#include "tageditor/RewriteTarget.h"
#include "tageditor/TagTools.h"

#include <QCoroTask>

#include <QString>
#include <QUrl>

#include <stop_token>

namespace tonearm {

/// Asks ffprobe after the rewritten copy of a file. A copy that can't be read is a malformedOutput.
QCoro::Task<ProbePayload> probeCopy(TagTools tools, QUrl url, QString path, std::stop_token stop);

/// Throws AudioFileTagError::malformedOutput if the copy has fewer audio streams than the file. ffmpeg can
/// leave some out and end well.
void checkAudioStreams(const QUrl &url, const ProbePayload &before, const ProbePayload &after);

/// Throws AudioFileTagError::malformedOutput unless the copy holds the original's sound to the last packet.
/// ffmpeg can end well with a copy that is cut short: when the disk is full at its very end.
QCoro::Task<> checkAudioPackets(TagTools tools, RewriteTarget target, ProbePayload before,
                                std::stop_token stop);

} // namespace tonearm
