// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tageditor/EditableAudioFile.h"
#include "tageditor/FileState.h"

#include <QString>
#include <QUrl>

namespace tonearm {

/// A file that may be rewritten, and where.
struct RewriteTarget
{
    /// As the editor knows it; may be a link.
    QUrl url;
    /// The real file, links followed.
    QString original;
    /// A hidden name in the real file's folder, so that the last step is a rename on one volume. Ends in the
    /// editor's name for the file, whose extension decides about the container.
    QString temporary;
    /// The original as it was when the rewrite began.
    FileState state;
};

/// Looks whether a file is there, may be written and is still as it was loaded. Throws AudioFileTagError for
/// the first that fails, std::system_error. Blocks.
RewriteTarget rewriteTarget(const EditableAudioFile &file);

/// Throws AudioFileTagError if the original isn't what it was when the rewrite began. Blocks.
void checkUnchanged(const RewriteTarget &target);

} // namespace tonearm
