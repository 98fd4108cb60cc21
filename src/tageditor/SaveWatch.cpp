// SPDX-License-Identifier: GPL-3.0-or-later
#include "tageditor/SaveWatch.h"

#include "tageditor/MetadataEditorModel.h"

#include <QMetaObject>

#include <utility>

namespace tonearm {

using namespace Qt::StringLiterals;

SaveWatch::SaveWatch(MetadataEditorModel &model, LongWork &work, WorkWindow window)
    : m_model(model)
    , m_work(work)
    , m_window(std::move(window))
    , m_onSaving(model.isSaving.addNotifier([this] { follow(); }))
    , m_onProgress(model.saveProgress.addNotifier([this] { follow(); }))
    , m_onMessage(model.completionMessage.addNotifier([this] { noteMessage(); }))
{
    follow();
}

SaveWatch::~SaveWatch()
{
    m_work.end(this);
}

void SaveWatch::follow()
{
    if (m_model.isSaving.value()) {
        m_isRunning = true;
        m_work.advance(this, u"Saving tags"_s, m_model.saveProgress.value());
    } else if (m_isRunning) {
        // Between the check of the files and the writing the model isn't saving, for an instant.
        QMetaObject::invokeMethod(
            &m_context, [this] { endUnlessItGoesOn(); }, Qt::QueuedConnection);
    }
}

// A message that stands from the save before isn't one of this save, so it is the change that counts.
void SaveWatch::noteMessage()
{
    m_result = std::nullopt;
    const std::optional<QString> message = m_model.completionMessage.value();
    if (m_isRunning && message && !m_model.wasSaveCancelled.value())
        m_result = WorkResult{*message, {}};
}

void SaveWatch::endUnlessItGoesOn()
{
    if (m_model.isSaving.value() || !std::exchange(m_isRunning, false))
        return;
    m_work.end(this);
    if (const std::optional<WorkResult> result = std::exchange(m_result, std::nullopt))
        m_work.tell(*result, m_window);
}

} // namespace tonearm
