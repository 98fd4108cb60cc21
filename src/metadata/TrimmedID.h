// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace tonearm {

/// A service's identifier without white space and line ends round it. Throws MetadataServiceError
/// (invalidQuery, with the text as it was given) if nothing is left.
QString trimmedID(const QString &id);

} // namespace tonearm
