// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/editorwindow/OverwriteWarning.h"

#include "app/screens/elements/AccessibleRole.h"
#include "app/screens/elements/Tooltip.h"

namespace tonearm {

using namespace Qt::StringLiterals;

OverwriteWarning::OverwriteWarning(EditableTagField field, QWidget *parent)
    : IconView(IconName::warning, Tone::warning, parent)
{
    setAccessibleRole(this, QAccessible::Graphic);
    setAccessibleName(u"%1 will be overwritten on every selected file"_s.arg(label(field)));
    setLongTooltip(
        this,
        u"The selected files have different values for this tag. Saving will give them all this one."_s);
    QSizePolicy policy = sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    setSizePolicy(policy);
    hide();
}

} // namespace tonearm
