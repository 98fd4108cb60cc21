// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

namespace tonearm {

class AppModel;

/// What the model is doing or has done, with a sign in front; hidden while it idles.
class StatusLine : public QWidget
{
    Q_OBJECT

public:
    explicit StatusLine(AppModel &model, QWidget *parent = nullptr);
};

} // namespace tonearm
