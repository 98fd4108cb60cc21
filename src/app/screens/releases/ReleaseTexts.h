// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "workflow/records/ReleaseInfo.h"

#include <QString>

namespace tonearm {

class AppModel;

/// A release's second line in the list of results: which disc it is, whether it has a track for each
/// chapter, and its details.
QString releaseRowDetail(const ReleaseInfo &release, qsizetype chapterCount);

/// The line under the sheet's title; empty without chapters.
QString releaseSheetAdvice(qsizetype chapterCount);

/// What the sheet says of the search: that it goes on, or how many matches it had, and for what.
QString releaseSheetStatus(const AppModel &model);

/// What stands in the list's place while it is empty; may itself be empty.
QString releaseListPlaceholder(const AppModel &model);

} // namespace tonearm
