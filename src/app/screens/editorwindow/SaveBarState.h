// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace tonearm {

class MetadataEditorModel;

/// What the bar with the save button tells.
struct SaveBarState
{
    enum class Kind { nothing, saving, completed, completedWithFailures, pending };

    Kind kind = Kind::nothing;
    /// Empty for nothing and saving.
    QString text = {};

    bool operator==(const SaveBarState &) const = default;
};

/// Can be bound.
SaveBarState saveBarState(const MetadataEditorModel &model);

} // namespace tonearm
