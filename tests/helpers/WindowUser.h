// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "helpers/Widgets.h"

#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>

#include <stdexcept>

namespace tonearm::test {

/// A person's ways to a window. What isn't there when it is asked for fails the test by an exception that
/// says so.
class WindowUser
{
public:
    /// Shows the window and waits until it is active.
    explicit WindowUser(QWidget &window);

    /// Whether something of that name is to be seen, scrolled away or not.
    template <typename Type = QWidget> bool shows(const QString &name)
    {
        return !allNamed<Type>(m_window, name).isEmpty();
    }

    /// The one thing of that name.
    template <typename Type = QWidget> Type &find(const QString &name)
    {
        Type *found = named<Type>(m_window, name);
        if (!found)
            throw std::runtime_error("there is no one \"" + name.toStdString() + "\" in the window");
        return *found;
    }

    QPushButton &button(const QString &name) { return find<QPushButton>(name); }

    QLineEdit &box(const QString &name) { return find<QLineEdit>(name); }

    /// Types a text in place of what is in a box.
    void fillIn(const QString &boxName, const QString &text);

    void waitFor(const QString &name);

    /// The dialogs that are open.
    QList<QMessageBox *> dialogs();

    /// The one dialog that is open, once it is active.
    QMessageBox &dialog();

    /// A button of a dialog.
    static QAbstractButton &buttonIn(const QMessageBox &dialog, const QString &text);

    /// Clicks a button of the one dialog that is open.
    void answer(const QString &buttonText);

    /// Waits until the window is the active one, without a dialog.
    void waitUntilUndisturbed();

    /// The names of the stops on the way from what has the focus, by a key, until it comes round to that.
    static QStringList stops(Qt::Key key);

    /// The name of what has the focus.
    static QString focusedName();

    /// Goes by Tab to the stop of that name.
    static void tabTo(const QString &name);

    /// The labels and buttons that are shown only in part.
    QStringList clipped();

    /// Lets the layouts come to rest.
    static void settle();

private:
    QWidget &m_window;
};

} // namespace tonearm::test
