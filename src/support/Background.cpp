// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/Background.h"

#include <QThreadPool>

#include <algorithm>

namespace tonearm {

void makeRoomInBackground()
{
    QThreadPool &pool = *QThreadPool::globalInstance();
    pool.setMaxThreadCount(std::max(pool.maxThreadCount(), backgroundThreads));
}

} // namespace tonearm
