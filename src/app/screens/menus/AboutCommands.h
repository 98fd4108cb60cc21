// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QMenu>

namespace tonearm {

/// The menu "Help".
class AboutCommands : public QMenu
{
    Q_OBJECT

public:
    explicit AboutCommands(QWidget *parent = nullptr);

Q_SIGNALS:
    void helpRequested();
    void aboutRequested();
};

} // namespace tonearm
