// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <optional>

namespace tonearm {

/// The form in which a text can name a folder, or a part of a file's name: one line, nothing that other
/// systems refuse, at most 100 characters and 255 bytes. Nothing if nothing is left.
std::optional<QString> cleanedFolderName(const QString &text);

/// The name of a track's file, "03-Some-Title.flac", at most 255 bytes. `number` is the track's position
/// in the job, from 1, and stands in for a title that leaves nothing.
QString outputFilename(const QString &title, qint64 number);

} // namespace tonearm
