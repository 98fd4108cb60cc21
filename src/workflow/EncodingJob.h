// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "encoding/EncodingLog.h"
#include "workflow/records/AudioMetadata.h"
#include "workflow/records/ChapterInfo.h"

#include <QList>
#include <QUrl>

namespace tonearm {

/// A job's working values, settled when it begins: what the user edits meanwhile doesn't reach it.
struct EncodingJob
{
    QUrl source;
    QList<ChapterInfo> chapters;
    AudioMetadata metadata;
    QUrl destination;
    /// Has one entry for each chapter, finished or not.
    EncodingLog log;
    /// The files finished so far, in order.
    QList<QUrl> outputs;
};

} // namespace tonearm
