// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringList>
#include <QUrl>

namespace tonearm {

/// The extensions, in lower case, of the pictures that can be embedded.
const QStringList &imageExtensions();

/// Whether a file is named like such a picture, in small or capital letters. What it holds is another matter.
bool hasImageExtension(const QUrl &url);

} // namespace tonearm
