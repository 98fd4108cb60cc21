// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/screens/elements/IconView.h"
#include "workflow/records/RipVerification.h"

#include <optional>

namespace tonearm {

/// Tells how far a ripped track can be trusted. Hidden where nothing is known.
class VerificationBadge : public IconView
{
    Q_OBJECT

public:
    explicit VerificationBadge(QWidget *parent);

    void setVerification(const std::optional<RipVerification> &verification);
};

} // namespace tonearm
