// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tageditor/EditableTagField.h"
#include "tageditor/RowOrder.h"

#include <QList>
#include <QString>

#include <optional>

namespace tonearm {

/// A column of the tag editor's table.
struct EditorColumn
{
    QString title;
    int minimumWidth = 0;
    int idealWidth = 0;
    RowComparator::Key sortKey = RowComparator::Key::fileName;
    /// Absent for the file's name.
    std::optional<EditableTagField> field = {};
    /// Texts profit from a wide window, numbers don't.
    bool isStretching = false;
};

/// All of them, in their order.
const QList<EditorColumn> &editorColumns();

/// The column that rows are sorted by with a key.
int editorColumnOf(RowComparator::Key key);

} // namespace tonearm
