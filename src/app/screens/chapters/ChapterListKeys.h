// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>

class QEvent;
class QKeyEvent;

namespace tonearm {

/// Where a key takes the focus among the rows of the chapter table.
enum class RowMove {
    previous,
    next,
    pageUp,
    pageDown,
    first,
    last,
};

/// What a key means that a text box had no use for; nothing if it isn't the table's.
std::optional<RowMove> rowMove(const QKeyEvent &key);

/// The row where a move from `row` ends, `page` being the rows of one page. It stops at the ends.
int rowAfter(RowMove move, int row, int count, int page);

/// Whether an event that a text box gets is one by which the user goes on writing there.
bool continuesTyping(const QEvent &event);

} // namespace tonearm
