// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tageditor/RewriteArguments.h"
#include "tageditor/TagTools.h"

#include <QCoroTask>

#include <stop_token>

namespace tonearm {

/// Lets ffmpeg carry out a rewrite. Throws what runFFmpeg() throws, and std::system_error.
QCoro::Task<> runRewrite(TagTools tools, Rewrite rewrite, std::stop_token stop);

} // namespace tonearm
