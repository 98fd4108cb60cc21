// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

class QToolButton;

namespace tonearm {

/// A pair of small buttons, one above the other, that move a number up and down beside the box that
/// shows it. By keyboard the box does that itself, so the buttons don't take the focus.
class Stepper : public QWidget
{
    Q_OBJECT

public:
    /// `name` is what the number is called; it isn't shown.
    explicit Stepper(const QString &name, QWidget *parent = nullptr);

    void setCanGoUp(bool can);
    void setCanGoDown(bool can);

Q_SIGNALS:
    /// 1 or -1; again and again while a button is held down.
    void stepped(int steps);

private:
    QToolButton *makeButton(Qt::ArrowType arrow, const QString &name, int steps);

    QToolButton *m_up;
    QToolButton *m_down;
};

} // namespace tonearm
