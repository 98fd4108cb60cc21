// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

namespace tonearm {

class MetadataEditorModel;

/// The tag editor's files, the line about them below, and what stands there while there are none.
class MetadataEditorTable : public QWidget
{
    Q_OBJECT

public:
    /// The model must outlive the table.
    MetadataEditorTable(MetadataEditorModel &model, QWidget *parent);
};

} // namespace tonearm
