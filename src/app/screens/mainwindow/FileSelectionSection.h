// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/screens/elements/SectionBox.h"

namespace tonearm {

class AppModel;

/// Section 1: where the source comes from and where the files go.
class FileSelectionSection : public SectionBox
{
    Q_OBJECT

public:
    explicit FileSelectionSection(AppModel &model, QWidget *parent = nullptr);

private:
    QWidget *makeInputFileWell();
    QWidget *makeOutputFolderWell();
    void addPaths();
    void addReadingRow();

    AppModel &m_model;
};

} // namespace tonearm
