// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QWidget>

#include <functional>

namespace tonearm {

class MetadataEditorModel;

/// The line under the tag editor's table. Takes no room while it has nothing to say.
class EditorFooter : public QWidget
{
    Q_OBJECT

public:
    /// The model must outlive the line.
    EditorFooter(const MetadataEditorModel &model, QWidget *parent);

private:
    void addText(const std::function<QString()> &text);
    void addSpinner();

    const MetadataEditorModel &m_model;
};

} // namespace tonearm
