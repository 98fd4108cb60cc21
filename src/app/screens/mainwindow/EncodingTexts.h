// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/screens/elements/Icons.h"

#include <QString>

namespace tonearm {

class AppModel;

/// Why the job can't start: the first reason, in words; empty if there is none.
QString encodingHint(const AppModel &model);

/// What the finished job has written, and where; empty without one.
QString encodingSummary(const AppModel &model);

/// A line with an icon; the text may be empty.
struct VerificationSummary
{
    QString text = {};
    IconName icon = IconName::success;

    bool operator==(const VerificationSummary &) const = default;
};

/// How far the tracks of a finished disc job can be trusted.
VerificationSummary verificationSummary(const AppModel &model);

/// The title of the section with the chapters, or the tracks of a disc.
QString chapterHeading(qsizetype chapterCount, bool isDisc);

} // namespace tonearm
