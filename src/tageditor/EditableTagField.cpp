// SPDX-License-Identifier: GPL-3.0-or-later
#include "tageditor/EditableTagField.h"

#include "support/Text.h"
#include "workflow/records/DigitText.h"

namespace tonearm {

using namespace Qt::StringLiterals;

QString label(EditableTagField field)
{
    switch (field) {
    case EditableTagField::trackPosition:
        return u"Track Position"_s;
    case EditableTagField::artist:
        return u"Artist"_s;
    case EditableTagField::album:
        return u"Album Title"_s;
    case EditableTagField::title:
        return u"Song Title"_s;
    case EditableTagField::year:
        return u"Year"_s;
    case EditableTagField::genre:
        return u"Genre"_s;
    case EditableTagField::discNumber:
        return u"Disc Number"_s;
    }
    Q_UNREACHABLE();
}

QString normalForm(EditableTagField field, const QString &typed)
{
    switch (field) {
    case EditableTagField::artist:
    case EditableTagField::album:
    case EditableTagField::title:
    case EditableTagField::genre:
        return trimmed(withoutNull(typed));
    case EditableTagField::trackPosition:
    case EditableTagField::discNumber:
        return digitsOnlyNumber(typed);
    case EditableTagField::year:
        return firstFourDigits(typed);
    }
    Q_UNREACHABLE();
}

} // namespace tonearm
