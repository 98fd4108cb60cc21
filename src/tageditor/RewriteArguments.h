// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tageditor/TagWrite.h"

#include <QString>
#include <QStringList>

#include <optional>

namespace tonearm {

/// One run of ffmpeg that copies a file with other tags.
struct Rewrite
{
    QString input;
    /// Its extension decides about the container.
    QString output;
    TagWrite write;
    /// The picture to embed, if the plan wants one.
    QString image = {};
    /// See id3Version().
    std::optional<int> id3Version = {};
    /// Whether one second of sound is enough.
    bool isPreflight = false;
};

/// The arguments for ffmpeg. The sound is never encoded anew.
QStringList rewriteArguments(const Rewrite &rewrite);

} // namespace tonearm
