// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

namespace tonearm {

/// What ffmpeg's "-version" output says of its version, for example "ffmpeg 7.1"; nothing if the output
/// has no line.
std::optional<QString> ffmpegVersionSummary(const QByteArray &output);

/// The same for cd-paranoia's "--version", for example "cd-paranoia 10.2+2.0.1".
std::optional<QString> cdParanoiaVersionSummary(const QByteArray &output);

} // namespace tonearm
