// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "disc/DiscInfo.h"

#include <QWidget>

#include <functional>

class QPushButton;

namespace tonearm {

class AppModel;

/// An audio CD that can be loaded or ejected as long as the model offers it.
class DiscOffer : public QWidget
{
    Q_OBJECT

public:
    DiscOffer(AppModel &model, const DiscInfo &disc, QWidget *parent = nullptr);

    const DiscInfo &disc() const { return m_disc; }

    /// Has Tab go through this row behind another widget; returns the row's last stop.
    QWidget *followInTabOrder(QWidget *before);

private:
    void connectAction(QPushButton *button, std::function<void()> action);

    AppModel &m_model;
    DiscInfo m_disc;
    QPushButton *m_load;
    QPushButton *m_eject;
};

} // namespace tonearm
