// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/screens/elements/IconView.h"
#include "tageditor/EditableTagField.h"

namespace tonearm {

/// The sign beside a field in which the selected files differ and will be made alike. Its place stays free
/// while it is hidden, as it is at first.
class OverwriteWarning : public IconView
{
    Q_OBJECT

public:
    explicit OverwriteWarning(EditableTagField field, QWidget *parent);
};

} // namespace tonearm
