// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tageditor/EditableTagField.h"

#include <QWidget>

#include <optional>

class QHBoxLayout;
class QLineEdit;

namespace tonearm {

class MetadataEditorModel;
class OverwriteWarning;

/// One tag of the selected files: its label, what they have in common as a text box, and the place for a
/// warning.
class TagField : public QWidget
{
    Q_OBJECT

public:
    /// Without a width the box takes what there is.
    TagField(MetadataEditorModel &model, EditableTagField field, std::optional<int> width = {},
             QWidget *parent = nullptr);

    EditableTagField field() const { return m_field; }

    QLineEdit *box() const { return m_box; }

    /// Shows whether a save makes the selected files alike in this tag.
    void setOverwritten(bool isOverwritten);

protected:
    /// Puts something behind the box. To be called once.
    void addBehindBox(QWidget *widget);

private:
    void connectBox();
    void layOut(std::optional<int> width);

    MetadataEditorModel &m_model;
    EditableTagField m_field;
    QHBoxLayout *m_row;
    QLineEdit *m_box;
    OverwriteWarning *m_warning;
    // The box is being given what the model holds.
    bool m_isShowing = false;
};

} // namespace tonearm
