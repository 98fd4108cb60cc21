// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/elements/Question.h"

#include "app/screens/elements/Icons.h"
#include "app/screens/elements/Mnemonic.h"
#include "app/screens/elements/TextStyle.h"

#include <QLabel>
#include <QLayout>
#include <QPushButton>
#include <QScrollArea>

#include <utility>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

constexpr int iconSide = 32;
constexpr int widestButton = 360;
constexpr int mostLines = 16;
constexpr int leastScrolledWidth = 440;

// Names of files stand in these texts. None of them is markup, marks a key or may widen the dialog.
QPushButton *addButton(QMessageBox *box, const QString &text, QMessageBox::ButtonRole role)
{
    const QString shown = box->fontMetrics().elidedText(text, Qt::ElideMiddle, widestButton);
    QPushButton *button = box->addButton(withoutMnemonic(shown), role);
    button->setAccessibleName(text);
    return button;
}

// Wraps its message at its own width, whatever width the dialog has in mind for the label.
class MessageArea final : public QScrollArea
{
public:
    using QScrollArea::QScrollArea;

protected:
    void resizeEvent(QResizeEvent *event) override
    {
        QScrollArea::resizeEvent(event);
        if (widget())
            widget()->setFixedWidth(viewport()->width());
    }
};

// The buttons have to stay on the screen, however many files or tags there are to tell of.
void letScroll(QMessageBox *box, QLabel *message)
{
    QLayout *layout = box->layout();
    auto *area = new MessageArea(box);
    area->setFrameShape(QFrame::NoFrame);
    area->setAccessibleName(box->text());
    delete layout->replaceWidget(message, area);
    message->setWordWrap(true);
    message->setAlignment(Qt::AlignLeading | Qt::AlignTop);
    area->setWidget(message);
    area->setWidgetResizable(true);
    area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    area->setMinimumSize(leastScrolledWidth, mostLines * message->fontMetrics().lineSpacing());
}

void addTexts(QMessageBox *box, const QuestionWords &words)
{
    box->setText(words.title);
    box->setInformativeText(words.message);
    // Qt's name for the label with the message.
    auto *message = box->findChild<QLabel *>(u"qt_msgbox_informativelabel"_s);
    if (message && words.message.count(u'\n') >= mostLines)
        letScroll(box, message);
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
