// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArrayView>
#include <QString>

#include <optional>

namespace tonearm {

/// The last thing that ffmpeg said of the sound among its progress lines, without the part of it that speaks.
/// Nothing if it only told its progress, or what is odd about a picture.
std::optional<QString> lastComplaint(QByteArrayView stderrBytes);

} // namespace tonearm
