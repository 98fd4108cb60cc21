// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/menus/EditCommands.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

bool canUndo(const QLineEdit &box)
{
    return box.isUndoAvailable();
}

bool canRedo(const QLineEdit &box)
{
    return box.isRedoAvailable();
}

bool canCut(const QLineEdit &box)
{
    return box.hasSelectedText() && !box.isReadOnly();
}

bool canCopy(const QLineEdit &box)
{
    return box.hasSelectedText();
}

bool canPaste(const QLineEdit &box)
{
    return !box.isReadOnly();
}

bool canSelectAll(const QLineEdit &box)
{
    return !box.text().isEmpty();
}

} // namespace

EditCommands::EditCommands(QWidget *window)
    : QMenu(u"&Edit"_s, window)
    , m_text(window)
{
    add(
        u"&Undo"_s, QKeySequence::Undo, [](QLineEdit &box) { box.undo(); }, canUndo);
    add(
        u"&Redo"_s, QKeySequence::Redo, [](QLineEdit &box) { box.redo(); }, canRedo);
    addSeparator();
    add(
        u"Cu&t"_s, QKeySequence::Cut, [](QLineEdit &box) { box.cut(); }, canCut);
    add(
        u"&Copy"_s, QKeySequence::Copy, [](QLineEdit &box) { box.copy(); }, canCopy);
    add(
        u"&Paste"_s, QKeySequence::Paste, [](QLineEdit &box) { box.paste(); }, canPaste);
    m_paste = actions().last();
    add(
        u"Select &All"_s, QKeySequence::SelectAll, [](QLineEdit &box) { box.selectAll(); }, canSelectAll);
    addSeparator();
    addAction(u"Pr&eferences…"_s, Qt::CTRL | Qt::Key_Comma, this, &EditCommands::settingsRequested);
    connect(&m_text, &FocusedText::changed, this, &EditCommands::updateEntries);
    connect(this, &QMenu::aboutToShow, this, [this] {
        updateEntries();
        updatePaste();
    });
    updateEntries();
}

void EditCommands::add(const QString &text, QKeySequence::StandardKey keys, Edit edit, Condition isPossible)
{
    QAction *action = addAction(text, this, [this, edit] {
        if (QLineEdit *box = m_text.box())
            edit(*box);
    });
    action->setShortcuts(keys);
    m_entries.push_back({action, isPossible});
}

void EditCommands::updateEntries()
{
    const QLineEdit *box = m_text.box();
    for (const Entry &entry : m_entries)
        entry.action->setEnabled(box && entry.isPossible(*box));
}

// What is in the clipboard is the business of another program, which may be slow to answer: it is asked
// only when the user is about to see the answer.
void EditCommands::updatePaste()
{
    const QMimeData *copied = QGuiApplication::clipboard()->mimeData();
    if (!copied || !copied->hasText())
        m_paste->setEnabled(false);
}

} // namespace tonearm
