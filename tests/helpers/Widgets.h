// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QString>
#include <QUrl>
#include <QWidget>

namespace tonearm::test {

/// The name by which assistive technology knows a widget: its accessible name, or its text.
QString accessibleNameOf(QWidget &widget);

/// The visible widgets of a type with an accessible name, the root itself included.
template <typename Type = QWidget> QList<Type *> allNamed(QWidget &root, const QString &name);

/// The one visible widget of a type with an accessible name; null if there is none, or more than one.
template <typename Type = QWidget> Type *named(QWidget &root, const QString &name);

/// Shows a window and waits until it is the active one; whether that came.
bool showActive(QWidget &window);

/// Types a text into whatever has the focus in the active window.
void type(const QString &text);

/// Presses and releases a key in whatever has the focus in the active window.
void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);

/// Clicks into the middle of a widget.
void click(QWidget &widget);

/// Turns the wheel over the middle of a widget, by so many steps towards the user.
void turnWheel(QWidget &widget, int steps);

/// Drags files over a widget; whether it would take them.
bool dragOver(QWidget &widget, const QList<QUrl> &urls);

/// Drags files over a widget and off again.
void dragAway(QWidget &widget, const QList<QUrl> &urls);

/// Drags files onto a widget and lets go; whether it took them.
bool drop(QWidget &widget, const QList<QUrl> &urls);

template <typename Type> QList<Type *> allNamed(QWidget &root, const QString &name)
{
    QList<Type *> found;
    QList<Type *> candidates = root.findChildren<Type *>();
    if (auto *itself = qobject_cast<Type *>(&root))
        candidates.prepend(itself);
    for (Type *candidate : candidates)
        if (candidate->isVisibleTo(&root) && accessibleNameOf(*candidate) == name)
            found.append(candidate);
    return found;
}

template <typename Type> Type *named(QWidget &root, const QString &name)
{
    const QList<Type *> found = allNamed<Type>(root, name);
    return found.size() == 1 ? found.first() : nullptr;
}

} // namespace tonearm::test
