// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QWidget;

namespace tonearm {

class AppModel;

/// Shows the main window's questions and alerts whenever the model has one waiting.
void showQuestions(QWidget *window, AppModel &model);

} // namespace tonearm
