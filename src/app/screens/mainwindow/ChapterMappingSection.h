// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/screens/elements/SectionBox.h"

namespace tonearm {

class AppModel;

/// Section 3: the chapters and the titles that their files will have.
class ChapterMappingSection : public SectionBox
{
    Q_OBJECT

public:
    explicit ChapterMappingSection(AppModel &model, QWidget *parent = nullptr);

private:
    void addExplanation();
    QWidget *makeReapplyButton();
    void addMismatchNote();
    void addTable();

    AppModel &m_model;
};

} // namespace tonearm
