// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QProperty>
#include <QString>

class QLineEdit;
class QWidget;

namespace tonearm {

/// A text box that shows a model's text and writes back what the user types. The text has to outlive
/// the box; the accessible name is the label that stands beside it.
QLineEdit *makeModelTextBox(QProperty<QString> &text, const QString &accessibleName, QWidget *parent);

} // namespace tonearm
