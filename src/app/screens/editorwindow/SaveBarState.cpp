// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/editorwindow/SaveBarState.h"

#include "tageditor/MetadataEditorModel.h"

namespace tonearm {

using namespace Qt::StringLiterals;

SaveBarState saveBarState(const MetadataEditorModel &model)
{
    using Kind = SaveBarState::Kind;
    if (model.isSaving.value())
        return {Kind::saving};
    if (const std::optional<QString> message = model.completionMessage.value()) {
        const bool hasFailures = !model.saveFailures.value().isEmpty();
        return {hasFailures ? Kind::completedWithFailures : Kind::completed, *message};
    }
    const qsizetype count = model.dirtyCount();
    if (count == 0)
        return {};
    return {Kind::pending,
            count == 1 ? u"1 file will be written."_s : u"%1 files will be written."_s.arg(count)};
}

} // namespace tonearm
