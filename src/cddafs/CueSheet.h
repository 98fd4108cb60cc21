// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

namespace tonearm {

/// Why an image can't be read, in words for a person; nothing if it can. libcdio reads the one .bin file
/// named like the .cue, as little-endian sectors, whatever the sheet says: one that says otherwise would
/// give noise or another disc's music.
///
/// `sheet` is the .cue file's contents, `binName` the name of the file that libcdio reads.
std::optional<QString> cueSheetProblem(const QByteArray &sheet, const QString &binName);

} // namespace tonearm
