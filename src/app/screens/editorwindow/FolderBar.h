// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

class QPushButton;

namespace tonearm {

class MetadataEditorModel;

/// Which folder is open, and how far it has been read.
class FolderBar : public QWidget
{
    Q_OBJECT

public:
    explicit FolderBar(MetadataEditorModel &model, QWidget *parent = nullptr);

    QPushButton *chooseButton() const { return m_choose; }

private:
    QWidget *makeProgress();

    MetadataEditorModel &m_model;
    QPushButton *m_choose;
};

} // namespace tonearm
