// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLineEdit>
#include <QObject>
#include <QPointer>

namespace tonearm {

/// The text box of a window that has the focus, as the user sees it: while a menu is open it is the
/// one that had it before, with what was selected there.
class FocusedText : public QObject
{
    Q_OBJECT

public:
    explicit FocusedText(QWidget *window);

    /// Null while something else has the focus.
    QLineEdit *box() const { return m_box; }

    bool eventFilter(QObject *watched, QEvent *event) override;

Q_SIGNALS:
    /// Another box, another text or another selection.
    void changed();

private:
    void follow(QWidget *focused);

    QWidget *m_window;
    QPointer<QLineEdit> m_box;
};

} // namespace tonearm
