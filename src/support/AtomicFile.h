// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

namespace tonearm {

/// Writes a file through a hidden temporary one beside it, so that it is there as a whole or as it was
/// before. An existing file of the name is replaced; a link of the name is replaced, not followed.
///
/// Throws std::system_error that names the path. Blocks.
void writeAtomically(const QString &path, QByteArrayView contents);

} // namespace tonearm
