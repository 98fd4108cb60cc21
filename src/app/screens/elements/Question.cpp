// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/elements/Question.h"

#include "app/screens/elements/Icons.h"
#include "app/screens/elements/TextStyle.h"

#include <QLabel>
#include <QPushButton>

#include <utility>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

constexpr int iconSide = 32;
constexpr int widestButton = 360;

// Names of files stand in these texts. None of them is markup, marks a key or may widen the dialog.
QPushButton *addButton(QMessageBox *box, const QString &text, QMessageBox::ButtonRole role)
{
    QString shown = box->fontMetrics().elidedText(text, Qt::ElideMiddle, widestButton);
    QPushButton *button = box->addButton(shown.replace(u'&', u"&&"_s), role);
    button->setAccessibleName(text);
    return button;
}

void addTexts(QMessageBox *box, const QuestionWords &words)
{
    box->setText(words.title);
    box->setInformativeText(words.message);
    for (QLabel *label : box->findChildren<QLabel *>())
        label->setTextFormat(Qt::PlainText);
    // Qt's name for the label with the text.
    if (auto *title = box->findChild<QLabel *>(u"qt_msgbox_label"_s))
        applyTextStyle(title, TextStyle::emphasised);
}

} // namespace

QMessageBox *openQuestion(QWidget *window, const QuestionWords &words, std::function<void(bool)> answered)
{
    auto *box = new QMessageBox(window);
    box->setWindowModality(Qt::WindowModal);
    box->setWindowTitle(window->windowTitle());
    const QSize iconSize(iconSide, iconSide);
    box->setIconPixmap(icon(IconName::warning, Tone::warning).pixmap(iconSize, window->devicePixelRatioF()));
    addTexts(box, words);

    const bool asks = !words.decline.isEmpty();
    QPushButton *accept =
        addButton(box, words.accept, asks ? QMessageBox::DestructiveRole : QMessageBox::AcceptRole);
    QPushButton *safe = asks ? addButton(box, words.decline, QMessageBox::RejectRole) : accept;
    box->setDefaultButton(safe);
    box->setEscapeButton(safe);

    QObject::connect(box, &QDialog::finished, box, [box, accept, answered = std::move(answered)] {
        box->deleteLater();
        answered(box->clickedButton() == accept);
    });
    box->open();
    return box;
}

void dismiss(QMessageBox *question)
{
    QObject::disconnect(question, &QDialog::finished, nullptr, nullptr);
    question->close();
    question->deleteLater();
}

} // namespace tonearm
