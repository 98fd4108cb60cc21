// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/chapters/VerificationBadge.h"

#include "app/screens/elements/AccessibleRole.h"

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

struct Look
{
    IconName icon;
    Tone tone;
    QString toolTip = {};
    QString accessibleName = {};
};

Look lookOf(RipVerification verification)
{
    switch (verification) {
    case RipVerification::secure:
        return {IconName::shield, Tone::success, u"Read with error correction, which reported no problems."_s,
                u"Verified by re-read"_s};
    case RipVerification::verified:
        return {IconName::seal, Tone::success, u"Read twice from the disc with identical results."_s,
                u"Verified by re-read"_s};
    case RipVerification::mismatched:
        return {
            IconName::warning, Tone::warning,
            u"The two reads of this track disagreed, so the disc may be damaged. The first read was encoded; check this track by ear."_s,
            u"Reads disagreed"_s};
    case RipVerification::unverified:
        return {IconName::success, Tone::success};
    }
    Q_UNREACHABLE();
}

} // namespace

VerificationBadge::VerificationBadge(QWidget *parent)
    : IconView(IconName::success, Tone::success, parent)
{
    setAccessibleRole(this, QAccessible::Graphic);
    hide();
}

void VerificationBadge::setVerification(const std::optional<RipVerification> &verification)
{
    setVisible(verification.has_value());
    if (!verification)
        return;
    const Look look = lookOf(*verification);
    setIcon(look.icon, look.tone);
    setToolTip(look.toolTip);
    setAccessibleName(look.accessibleName);
}

} // namespace tonearm
