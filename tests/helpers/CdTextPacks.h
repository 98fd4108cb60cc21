// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QList>

namespace tonearm::test {

/// How CD-Text says that its characters are encoded.
enum class CdTextCharset : unsigned char { latin1 = 0x00, ascii = 0x01, shiftJis = 0x80 };

/// The contents of a CD-Text file as a .cue sheet's CDTEXTFILE names it: the disc's title, then a title
/// for each track from `firstNumber` on, in one block. The titles are bytes in the charset.
QByteArray cdTextPacks(const QList<QByteArray> &titles, int firstNumber, CdTextCharset charset);

} // namespace tonearm::test
