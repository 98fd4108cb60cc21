// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/WorkflowState.h"

namespace tonearm {

WorkflowState::WorkflowState(Kind kind)
    : m_kind(kind)
{
}

WorkflowState WorkflowState::error(const QString &text)
{
    WorkflowState state(Kind::error);
    state.m_errorText = text;
    return state;
}

} // namespace tonearm
