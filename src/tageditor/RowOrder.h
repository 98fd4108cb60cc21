// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tageditor/EditableAudioFile.h"

#include <QList>

namespace tonearm {

/// One rule of a table's order.
struct RowComparator
{
    /// What rows are compared by. Tags count as they are stored, whatever edits wait.
    enum class Key { fileName, discNumber, trackPosition, artist, album, title, year, genre };

    Key key = Key::fileName;
    Qt::SortOrder order = Qt::AscendingOrder;

    bool operator==(const RowComparator &) const = default;
};

/// The disc's number, or 0 where there is none.
qint64 discSortKey(const AudioFileTags &tags);

/// The track's number. Where there is none it is the largest there is, so that the row comes last.
qint64 trackSortKey(const AudioFileTags &tags);

/// By disc, position and file name.
QList<RowComparator> defaultRowOrder();

/// The order in which a key comes first and the earlier rules follow. Where it comes first already, it is
/// turned round.
QList<RowComparator> rowOrderLedBy(RowComparator::Key key, QList<RowComparator> earlier);

/// The rows in an order, of which each rule counts where those in front of it find no difference. Texts are
/// compared plainly, and rows that are alike stay as they were.
QList<EditableAudioFile> sortedRows(const QList<EditableAudioFile> &rows, const QList<RowComparator> &order);

} // namespace tonearm
