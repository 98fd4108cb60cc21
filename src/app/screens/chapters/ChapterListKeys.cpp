// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/chapters/ChapterListKeys.h"

#include <QKeyEvent>

#include <algorithm>

namespace tonearm {

namespace {

bool isModifier(int key)
{
    switch (key) {
    case Qt::Key_Shift:
    case Qt::Key_Control:
    case Qt::Key_Alt:
    case Qt::Key_AltGr:
    case Qt::Key_Meta:
    case Qt::Key_CapsLock:
    case Qt::Key_NumLock:
        return true;
    default:
        return false;
    }
}

} // namespace

std::optional<RowMove> rowMove(const QKeyEvent &key)
{
    const Qt::KeyboardModifiers modifiers = key.modifiers() & ~Qt::KeypadModifier;
    if (modifiers == Qt::ControlModifier && key.key() == Qt::Key_Home)
        return RowMove::first;
    if (modifiers == Qt::ControlModifier && key.key() == Qt::Key_End)
        return RowMove::last;
    if (modifiers != Qt::NoModifier)
        return std::nullopt;
    switch (key.key()) {
    case Qt::Key_Up:
        return RowMove::previous;
    case Qt::Key_Down:
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return RowMove::next;
    case Qt::Key_PageUp:
        return RowMove::pageUp;
    case Qt::Key_PageDown:
        return RowMove::pageDown;
    default:
        return std::nullopt;
    }
}

int rowAfter(RowMove move, int row, int count, int page)
{
    const auto within = [&](int target) { return std::clamp(target, 0, count - 1); };
    switch (move) {
    case RowMove::previous:
        return within(row - 1);
    case RowMove::next:
        return within(row + 1);
    case RowMove::pageUp:
        return within(row - page);
    case RowMove::pageDown:
        return within(row + page);
    case RowMove::first:
        return 0;
    case RowMove::last:
        return count - 1;
    }
    Q_UNREACHABLE();
}

bool continuesTyping(const QEvent &event)
{
    if (event.type() == QEvent::InputMethod)
        return true;
    if (event.type() != QEvent::KeyPress)
        return false;
    const auto &key = static_cast<const QKeyEvent &>(event);
    const Qt::KeyboardModifiers chord = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
    return !isModifier(key.key()) && !(key.modifiers() & chord);
}

} // namespace tonearm
