// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/menus/FileCommands.h"

#include "app/screens/elements/Bind.h"
#include "app/screens/menus/DiscCommands.h"
#include "workflow/AppModel.h"

namespace tonearm {

using namespace Qt::StringLiterals;

FileCommands::FileCommands(AppModel &model, QWidget *parent)
    : QMenu(u"&File"_s, parent)
    , m_model(model)
{
    addSourceEntries();
    addSeparator();
    addDiscCommands(*this, model);
    addSeparator();
    addJobEntries();
    addOutputEntries();
    addSeparator();
    addWindowEntries();
    connect(this, &QMenu::aboutToShow, this, [this] { m_model.lookForLog(); });
}

void FileCommands::addSourceEntries()
{
    addAction(u"Select &Input File…"_s, Qt::CTRL | Qt::Key_I, this, [this] { m_model.chooseInputFile(); });
    addAction(u"Select &Output Folder…"_s, Qt::CTRL | Qt::Key_O, this,
              [this] { m_model.chooseOutputFolder(); });
}

void FileCommands::addJobEntries()
{
    QAction *encode =
        addAction(u"&Encode to FLAC"_s, Qt::CTRL | Qt::Key_E, this, [this] { m_model.startEncoding(); });
    bind(
        encode, [this] { return m_model.canEncode(); }, &QAction::setEnabled);
    QAction *cancel = addAction(u"&Cancel Encoding"_s, Qt::CTRL | Qt::Key_Period, this,
                                [this] { m_model.cancelEncoding(); });
    bind(
        cancel, [this] { return m_model.encodingTask.value().has_value(); }, &QAction::setEnabled);
}

void FileCommands::addOutputEntries()
{
    QAction *output = addAction(u"&Show Output in Finder"_s, this, [this] { m_model.revealOutput(); });
    bind(
        output, [this] { return m_model.outputFolderURL.value().has_value(); }, &QAction::setEnabled);
    QAction *log = addAction(u"Show Encoding &Log"_s, this, [this] { m_model.revealLog(); });
    bind(
        log, [this] { return m_model.hasLogFile(); }, &QAction::setEnabled);
}

void FileCommands::addWindowEntries()
{
    addAction(u"Close &Window"_s, Qt::CTRL | Qt::Key_W, this, &FileCommands::closeRequested);
    QAction *quit = addAction(u"&Quit"_s, Qt::CTRL | Qt::Key_Q, this, &FileCommands::quitRequested);
    // From every window of the program.
    quit->setShortcutContext(Qt::ApplicationShortcut);
}

} // namespace tonearm
