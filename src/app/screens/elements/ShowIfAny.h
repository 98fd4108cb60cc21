// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <optional>

class QLabel;

namespace tonearm {

/// Shows a label with a text, or hides it where the text is absent or empty. Made for bind().
void showIfAny(QLabel *label, const std::optional<QString> &text);

/// The same for an announcer (see Announcement.h): a screen reader tells the text too.
void announceIfAny(QLabel *announcer, const std::optional<QString> &text);

} // namespace tonearm
