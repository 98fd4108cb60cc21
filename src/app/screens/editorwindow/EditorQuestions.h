// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QWidget;

namespace tonearm {

class MetadataEditorModel;

/// Shows the tag editor's questions and alerts whenever the model has one waiting. Closes the window once the
/// user has given up the edits.
void showQuestions(QWidget *window, MetadataEditorModel &model);

} // namespace tonearm
