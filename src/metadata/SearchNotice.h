// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "metadata/MetadataSearchOutcome.h"

#include <exception>
#include <optional>

namespace tonearm {

/// What to tell about a service's failure; nothing for a cancellation, which is as if nothing was found.
std::optional<MetadataSearchOutcome::Notice> noticeOf(const std::exception_ptr &failure,
                                                      MetadataSource source);

} // namespace tonearm
