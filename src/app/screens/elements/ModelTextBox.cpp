// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/elements/ModelTextBox.h"

#include "app/screens/elements/Bind.h"

#include <QLineEdit>

namespace tonearm {

QLineEdit *makeModelTextBox(QProperty<QString> &text, const QString &accessibleName, QWidget *parent)
{
    auto *box = new QLineEdit(parent);
    box->setAccessibleName(accessibleName);
    bind(
        box, [&text] { return text.value(); },
        [](QLineEdit *shown, const QString &value) {
            // What the user is typing is there already; setting it again would move the cursor.
            if (shown->text() != value)
                shown->setText(value);
        });
    // Not textEdited: an assistive tool that fills the box in doesn't type.
    QObject::connect(box, &QLineEdit::textChanged, box, [&text](const QString &value) { text = value; });
    return box;
}

} // namespace tonearm
