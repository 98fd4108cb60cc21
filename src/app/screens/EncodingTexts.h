// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace tonearm {

class AppModel;

/// Why the job can't start: the first reason, in words; empty if there is none.
QString encodingHint(const AppModel &model);

/// What the finished job has written, and where; empty without one.
QString encodingSummary(const AppModel &model);

/// The title of the section with the chapters.
QString chapterHeading(qsizetype chapterCount);

} // namespace tonearm
