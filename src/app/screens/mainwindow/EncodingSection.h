// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/screens/elements/SectionBox.h"

class QHBoxLayout;
class QPushButton;

namespace tonearm {

class AppModel;

/// Section 4: the job itself, its progress and what became of it.
class EncodingSection : public SectionBox
{
    Q_OBJECT

public:
    explicit EncodingSection(AppModel &model, QWidget *parent = nullptr);

private:
    void addButtons();
    void addJobButtons(QHBoxLayout *row);
    QPushButton *makeShowButton();
    QPushButton *makeClearButton();
    void addProgressBar();
    void addHint();
    void addSummary();
    bool isRunning() const;

    AppModel &m_model;
};

} // namespace tonearm
