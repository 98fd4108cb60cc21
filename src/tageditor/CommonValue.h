// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tageditor/EditableTagField.h"

#include <QString>

#include <utility>

namespace tonearm {

/// What the selected files have in common in one field.
struct CommonValue
{
    enum class Kind { none, mixed, value };

    /// Nothing is selected.
    static CommonValue none() { return {}; }

    /// At least two files differ.
    static CommonValue mixed() { return {Kind::mixed, {}}; }

    static CommonValue value(QString common) { return {Kind::value, std::move(common)}; }

    Kind kind = Kind::none;
    /// What all of them have; empty unless there is such a value, and so what a text box shows.
    QString text = {};

    bool operator==(const CommonValue &) const = default;
};

/// What the text box of a field with this value shows while it is empty.
QString placeholderOf(EditableTagField field, const CommonValue &common);

} // namespace tonearm
