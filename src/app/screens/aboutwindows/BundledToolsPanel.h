// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/screens/elements/GroupPanel.h"

class QGridLayout;
class QLabel;

namespace tonearm {

class AppModel;

/// What is known of the tools that come with the application.
class BundledToolsPanel : public GroupPanel
{
    Q_OBJECT

public:
    explicit BundledToolsPanel(AppModel &model, QWidget *parent = nullptr);

private:
    void addRow(QGridLayout *grid, const QString &name, QWidget *value);
    QWidget *makeFFmpeg(const QString &name);
    QWidget *makeCheckAgain(QWidget *parent);
    QLabel *makeParanoia();

    AppModel &m_model;
};

} // namespace tonearm
