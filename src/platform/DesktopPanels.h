// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "workflow/Panels.h"

namespace tonearm {

/// The desktop's own file dialogs, modal to the active window.
class DesktopPanels : public Panels
{
public:
    QCoro::Task<std::optional<QUrl>> choose(OpenPanelRequest request, std::stop_token stop) override;
};

} // namespace tonearm
