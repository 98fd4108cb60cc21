// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/JobWatch.h"

#include "workflow/AppModel.h"

#include <optional>
#include <utility>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

// Nothing for a job that the user has stopped.
std::optional<WorkResult> resultOf(const AppModel &model)
{
    const WorkflowState state = model.currentState.value();
    if (state.kind() == WorkflowState::Kind::complete)
        return WorkResult{model.progressMessage.value(), {}};
    if (state.kind() == WorkflowState::Kind::error)
        return WorkResult{model.progressMessage.value(), state.errorText()};
    return std::nullopt;
}

} // namespace

JobWatch::JobWatch(AppModel &model, LongWork &work, WorkWindow window)
    : m_model(model)
    , m_work(work)
    , m_window(std::move(window))
    , m_onTask(model.encodingTask.addNotifier([this] { follow(); }))
    , m_onProgress(model.encodingProgress.addNotifier([this] { follow(); }))
{
    follow();
}

JobWatch::~JobWatch()
{
    m_work.end(this);
}

// The model gives the task's handle away last, when all that there is to tell is told.
void JobWatch::follow()
{
    if (m_model.encodingTask.value()) {
        m_isRunning = true;
        m_work.advance(this, u"Encoding to FLAC"_s, m_model.encodingProgress.value());
        return;
    }
    if (!std::exchange(m_isRunning, false))
        return;
    m_work.end(this);
    if (const std::optional<WorkResult> result = resultOf(m_model))
        m_work.tell(*result, m_window);
}

} // namespace tonearm
