// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

namespace tonearm {

class AppModel;

/// The release that was chosen, or how many there are to choose from, and the button that leads to them.
class ReleaseLine : public QWidget
{
    Q_OBJECT

public:
    explicit ReleaseLine(AppModel &model, QWidget *parent = nullptr);
};

} // namespace tonearm
