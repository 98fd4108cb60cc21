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

/// What a dialog says. A message of many lines scrolls.
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

/// Keeps a dialog open for as long as there is something to ask: it opens when the getter gives something,
/// or something else, and closes when that is nothing any more. `answered` is told as by openQuestion().
template <typename Getter>
void askWhilePresent(
    QWidget *window, Getter pending,
    std::function<QuestionWords(const typename detail::BoundValue<Getter>::value_type &)> words,
    std::function<void(bool)> answered)
{
    using Pending = detail::BoundValue<Getter>;
    const auto open = std::make_shared<QPointer<QMessageBox>>();
    bind(window, std::move(pending),
         [window, open, words = std::move(words), answered = std::move(answered)](const Pending &asked) {
             if (QMessageBox *earlier = open->data())
                 dismiss(earlier);
             if (asked)
                 *open = openQuestion(window, words(*asked), answered);
         });
}

/// The same for a model's field. An answer that declines sets it to absent.
template <typename Pending>
void askWhilePending(QWidget *window, QProperty<std::optional<Pending>> &field,
                     std::function<QuestionWords(const Pending &)> words, std::function<void()> accept)
{
    const auto answered = [&field, accept = std::move(accept)](bool accepted) {
        if (accepted)
            accept();
        else
            field = std::nullopt;
    };
    askWhilePresent(
        window, [&field] { return field.value(); }, std::move(words), answered);
}

/// Keeps a dialog open that only informs, for as long as an alert, which is anything with a title and a
/// message, stands in a model's field. Closing it sets the field to absent.
template <typename Alert> void showAlerts(QWidget *window, QProperty<std::optional<Alert>> &field)
{
    askWhilePresent(
        window, [&field] { return field.value(); },
        [](const Alert &alert) {
            return QuestionWords{alert.title, alert.message, QStringLiteral("OK")};
        },
        [&field](bool) { field = std::nullopt; });
}

} // namespace tonearm
