// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/elements/CloseKeys.h"

#include <QShortcut>
#include <QWidget>

namespace tonearm {

void addCloseKeys(QWidget *window)
{
    for (const QKeySequence &keys : {QKeySequence(Qt::CTRL | Qt::Key_W), QKeySequence(Qt::Key_Escape)})
        QObject::connect(new QShortcut(keys, window), &QShortcut::activated, window, &QWidget::close);
}

} // namespace tonearm
