// SPDX-License-Identifier: GPL-3.0-or-later
#include "helpers/WindowUser.h"

#include "app/screens/elements/ElidedLabel.h"
#include "helpers/Await.h"

#include <QApplication>
#include <QLabel>

namespace tonearm::test {

using namespace Qt::StringLiterals;

namespace {

// More than any window has.
constexpr int mostStops = 60;

[[noreturn]] void fail(const QString &what)
{
    throw std::runtime_error(what.toStdString());
}

bool isClipped(const QWidget &widget)
{
    const auto *label = qobject_cast<const QLabel *>(&widget);
    if (!label && !qobject_cast<const QAbstractButton *>(&widget))
        return false;
    if (qobject_cast<const ElidedLabel *>(&widget))
        return widget.height() < widget.minimumSizeHint().height();
    if (label && label->wordWrap())
        return widget.height() < widget.heightForWidth(widget.width());
    return widget.width() < widget.minimumSizeHint().width() ||
           widget.height() < widget.minimumSizeHint().height();
}

} // namespace

WindowUser::WindowUser(QWidget &window)
    : m_window(window)
{
    if (!showActive(m_window))
        fail(u"the window didn't come up"_s);
}

void WindowUser::fillIn(const QString &boxName, const QString &text)
{
    click(box(boxName));
    press(Qt::Key_A, Qt::ControlModifier);
    type(text);
}

void WindowUser::waitFor(const QString &name)
{
    constexpr int patienceMilliseconds = 60000;
    if (!eventually([&] { return shows(name); }, patienceMilliseconds))
        fail(u"\"%1\" never showed"_s.arg(name));
}

QList<QMessageBox *> WindowUser::dialogs()
{
    QList<QMessageBox *> open;
    for (auto *dialog : m_window.findChildren<QMessageBox *>())
        if (dialog->isVisible())
            open.append(dialog);
    return open;
}

QMessageBox &WindowUser::dialog()
{
    if (!eventually([this] { return dialogs().size() == 1 && dialogs().first()->isActiveWindow(); }))
        fail(u"there are %1 dialogs"_s.arg(dialogs().size()));
    return *dialogs().first();
}

QAbstractButton &WindowUser::buttonIn(const QMessageBox &dialog, const QString &text)
{
    for (QAbstractButton *button : dialog.buttons())
        if (accessibleNameOf(*button) == text)
            return *button;
    fail(u"the dialog has no \"%1\""_s.arg(text));
}

void WindowUser::answer(const QString &buttonText)
{
    click(buttonIn(dialog(), buttonText));
}

void WindowUser::waitUntilUndisturbed()
{
    if (!eventually([this] { return dialogs().isEmpty(); }))
        fail(u"there are %1 dialogs"_s.arg(dialogs().size()));
    // A window manager gives the focus back to the window by itself.
    if (!showActive(m_window))
        fail(u"the window didn't become active again"_s);
}

QString WindowUser::focusedName()
{
    QWidget *focused = QApplication::focusWidget();
    return focused ? accessibleNameOf(*focused) : QString();
}

QStringList WindowUser::stops(Qt::Key key)
{
    QStringList names;
    const QString first = focusedName();
    do {
        names.append(focusedName());
        press(key);
    } while (focusedName() != first && names.size() < mostStops);
    return names;
}

void WindowUser::tabTo(const QString &name)
{
    for (int step = 0; focusedName() != name; ++step) {
        if (step == mostStops)
            fail(u"no way to \"%1\""_s.arg(name));
        press(Qt::Key_Tab);
    }
}

QStringList WindowUser::clipped()
{
    QStringList names;
    for (QWidget *widget : m_window.findChildren<QWidget *>())
        if (widget->isVisible() && isClipped(*widget))
            names.append(accessibleNameOf(*widget));
    return names;
}

void WindowUser::settle()
{
    // A layout that needs more or less room than before asks the one around it for that by an event.
    constexpr int deepest = 10;
    for (int level = 0; level < deepest; ++level)
        QCoreApplication::processEvents();
}

} // namespace tonearm::test
