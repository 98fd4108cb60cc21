// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArrayView>
#include <QString>

#include <optional>

namespace tonearm {

/// The last thing that ffmpeg said among its progress lines, without the part of it that speaks. Nothing if
/// it only told its progress.
std::optional<QString> lastComplaint(QByteArrayView stderrBytes);

} // namespace tonearm
