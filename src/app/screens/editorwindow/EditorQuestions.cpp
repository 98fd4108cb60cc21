// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/editorwindow/EditorQuestions.h"

#include "app/screens/elements/Question.h"
#include "support/PathText.h"
#include "tageditor/MetadataEditorModel.h"

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

// Present while a question without a subject is asked.
using Asked = std::optional<std::monostate>;

QuestionWords folderChangeWords(const PendingFolderChange &change)
{
    const QString name = lastPathComponent(change.url);
    return {
        u"Load a different folder?"_s,
        u"Loading %1 will discard the changes you've made. Nothing has been written to disk yet."_s.arg(name),
        u"Load "_s + name, u"Keep Editing"_s};
}

QuestionWords refusalWords(const MetadataEditorModel &model, const QList<RefusedSave> &refused)
{
    return {refused.size() == 1 ? u"Save it without those tags?"_s : u"Save them without those tags?"_s,
            model.refusalMessage(), u"Save Anyway"_s, u"Leave Unchanged"_s};
}

QuestionWords discardWords()
{
    return {
        u"Discard your changes?"_s,
        u"The edits you've made haven't been written to disk. Closing now leaves every file exactly as it is."_s,
        u"Discard Changes"_s, u"Keep Editing"_s};
}

std::optional<QList<RefusedSave>> refusedSaves(const MetadataEditorModel &model)
{
    const QList<RefusedSave> refused = model.refusedSaves.value();
    return refused.isEmpty() ? std::nullopt : std::optional(refused);
}

void askAboutRefusedFiles(QWidget *window, MetadataEditorModel &model)
{
    askWhilePresent(
        window, [&model] { return refusedSaves(model); },
        [&model](const QList<RefusedSave> &refused) { return refusalWords(model, refused); },
        [&model](bool accepted) {
            if (accepted)
                model.saveAnyway();
            else
                model.leaveRefusedUnchanged();
        });
}

void askBeforeClosing(QWidget *window, MetadataEditorModel &model)
{
    const auto asked = [&model] { return model.isConfirmingCancel.value() ? Asked(std::in_place) : Asked(); };
    askWhilePresent(
        window, asked, [](std::monostate) { return discardWords(); },
        [window, &model](bool accepted) {
            model.isConfirmingCancel = false;
            if (!accepted)
                return;
            model.reset();
            window->close();
        });
}

} // namespace

void showQuestions(QWidget *window, MetadataEditorModel &model)
{
    askWhilePending<PendingFolderChange>(window, model.pendingFolderChange, folderChangeWords,
                                         [&model] { model.confirmFolderChange(); });
    askAboutRefusedFiles(window, model);
    askBeforeClosing(window, model);
    showAlerts(window, model.alert);
}

} // namespace tonearm
