// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/ChildSignal.h"

#include <csignal>

namespace tonearm {

void restoreChildSignal()
{
    std::signal(SIGCHLD, SIG_DFL);
}

} // namespace tonearm
