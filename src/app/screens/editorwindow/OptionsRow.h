// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

class QCheckBox;

namespace tonearm {

class MetadataEditorModel;

/// What is to become of files that can't keep all their tags, and what has become of them.
class OptionsRow : public QWidget
{
    Q_OBJECT

public:
    explicit OptionsRow(MetadataEditorModel &model, QWidget *parent = nullptr);

    QCheckBox *toggle() const { return m_toggle; }

private:
    QCheckBox *m_toggle;
};

} // namespace tonearm
