// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArrayView>

namespace tonearm {

/// Whether bytes that begin as a JPEG or a PNG break off before the mark that ends such a picture. What lies
/// behind the mark doesn't count, and what begins as neither lacks nothing.
bool lacksPictureEnd(QByteArrayView bytes);

} // namespace tonearm
