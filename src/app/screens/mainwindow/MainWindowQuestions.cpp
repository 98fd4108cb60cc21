// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/mainwindow/MainWindowQuestions.h"

#include "app/screens/elements/Question.h"
#include "workflow/AppModel.h"

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

QuestionWords sourceChangeWords(const PendingSourceChange &change)
{
    return {u"Replace the current setup?"_s, change.message(), u"Load "_s + change.sourceName(),
            u"Keep Current Setup"_s};
}

QuestionWords overwriteWords(const PendingOverwrite &overwrite)
{
    return {overwrite.title(), overwrite.message(), u"Overwrite"_s, u"Cancel"_s};
}

QuestionWords closeWords(const PendingClose &)
{
    return {
        u"Stop encoding?"_s,
        u"Closing the window stops the job that is running. Tracks already finished stay where they are."_s,
        u"Stop and Close"_s, u"Keep Encoding"_s};
}

} // namespace

void showQuestions(QWidget *window, AppModel &model)
{
    askWhilePending<PendingSourceChange>(window, model.pendingSourceChange, sourceChangeWords,
                                         [&model] { model.confirmPendingSourceChange(); });
    askWhilePending<PendingOverwrite>(window, model.pendingOverwrite, overwriteWords,
                                      [&model] { model.confirmOverwrite(); });
    askWhilePending<PendingClose>(window, model.pendingClose, closeWords,
                                  [&model] { model.confirmPendingClose(); });
    showAlerts(window, model.alert);
}

} // namespace tonearm
