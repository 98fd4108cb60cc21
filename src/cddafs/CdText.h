// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QMap>
#include <QString>

struct cdtext_s;

namespace tonearm {

/// The titles of a disc and its tracks.
struct DiscTitles
{
    QString disc;
    /// By track number; only those that there are.
    QMap<int, QString> tracks;

    bool operator==(const DiscTitles &) const = default;
};

/// The titles in a disc's CD-Text; `text` may be null.
DiscTitles discTitles(const cdtext_s *text);

/// A title as libcdio gives it, in its right encoding: libcdio takes bytes for Latin-1 that often are
/// UTF-8, in .cue sheets above all. Bytes that are no text give what can be made of them.
QString titleText(const char *given);

} // namespace tonearm
