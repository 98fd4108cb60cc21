// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QMenu>

namespace tonearm {

/// The menu "Tools".
class ToolsCommands : public QMenu
{
    Q_OBJECT

public:
    explicit ToolsCommands(QWidget *parent = nullptr);

Q_SIGNALS:
    void editorRequested();
};

} // namespace tonearm
