// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "workflow/LongWork.h"

#include <QObject>
#include <QPropertyNotifier>

#include <optional>

namespace tonearm {

class MetadataEditorModel;

/// Tells LongWork of the saves of the tag editor's model. Main thread.
class SaveWatch
{
public:
    /// The model and `work` have to outlive it.
    SaveWatch(MetadataEditorModel &model, LongWork &work, WorkWindow window);
    ~SaveWatch();
    SaveWatch(const SaveWatch &) = delete;
    SaveWatch &operator=(const SaveWatch &) = delete;

private:
    void follow();
    void noteMessage();
    void endUnlessItGoesOn();

    MetadataEditorModel &m_model;
    LongWork &m_work;
    WorkWindow m_window;
    bool m_isRunning = false;
    // What is to be told when the save ends.
    std::optional<WorkResult> m_result;
    // Receives what is put off.
    QObject m_context;
    QPropertyNotifier m_onSaving;
    QPropertyNotifier m_onProgress;
    QPropertyNotifier m_onMessage;
};

} // namespace tonearm
