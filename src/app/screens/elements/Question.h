// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/screens/elements/Bind.h"

#include <QMessageBox>
#include <QPointer>
#include <QProperty>
#include <QString>

#include <functional>
#include <memory>
#include <optional>

namespace tonearm {

/// What a dialog says.
struct QuestionWords
{
    QString title;
    QString message;
    /// The button that goes ahead.
    QString accept;
    /// The button that leaves things as they are; a dialog without it only informs.
    QString decline = {};
};

/// Opens a dialog modal to a window and returns at once. `answered` is told whether the user went
/// ahead; closing the dialog or Escape declines. The dialog deletes itself.
QMessageBox *openQuestion(QWidget *window, const QuestionWords &words, std::function<void(bool)> answered);

/// Takes a dialog away without an answer.
void dismiss(QMessageBox *question);

/// Keeps a dialog open for as long as a model's field holds something to ask: it opens when the field
/// becomes present or something else, and closes when it becomes absent. An answer that declines sets
/// the field to absent.
template <typename Pending>
void askWhilePending(QWidget *window, QProperty<std::optional<Pending>> &field,
                     std::function<QuestionWords(const Pending &)> words, std::function<void()> accept)
{
    const auto open = std::make_shared<QPointer<QMessageBox>>();
    const auto answered = [&field, accept = std::move(accept)](bool accepted) {
        if (accepted)
            accept();
        else
            field = std::nullopt;
    };
    bind(
        window, [&field] { return field.value(); },
        [window, open, words = std::move(words), answered](const std::optional<Pending> &pending) {
            if (QMessageBox *earlier = open->data())
                dismiss(earlier);
            if (pending)
                *open = openQuestion(window, words(*pending), answered);
        });
}

} // namespace tonearm
