// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tageditor/AudioPackets.h"
#include "tageditor/ProbePayload.h"
#include "tageditor/ScratchFolders.h"
#include "tools/ProcessRunner.h"
#include "tools/ToolLocation.h"

#include <QCoroTask>

#include <QString>
#include <QStringList>

#include <memory>
#include <stop_token>

namespace tonearm {

/// What the work on tags is done with: the two programs, how they are run, and where their temporary files
/// go.
struct TagTools
{
    ToolLocation location;
    ProcessRunner processRunner;
    std::shared_ptr<ScratchFolders> scratch;
};

/// Asks ffprobe after a file. Throws AudioFileTagError::malformedOutput, also for a file without any sound,
/// FFmpegNotFoundError, and what ProcessRunner::run throws.
QCoro::Task<ProbePayload> probe(TagTools tools, QString path, std::stop_token stop);

/// Lists the packets of a file's sound, which takes a read of the whole file. Throws FFmpegNotFoundError and
/// what ProcessRunner::run throws.
QCoro::Task<AudioPackets> audioPackets(TagTools tools, QString path, std::stop_token stop);

/// Throws FFmpegNotFoundError and what ProcessRunner::run throws.
QCoro::Task<> runFFmpeg(TagTools tools, QStringList arguments, std::stop_token stop);

} // namespace tonearm
