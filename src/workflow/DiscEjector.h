// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QCoroTask>

#include <QUrl>

#include <stop_token>

namespace tonearm {

/// Gives discs back. Main thread.
class DiscEjector
{
public:
    virtual ~DiscEjector() = default;

    /// Unmounts a volume and has its drive open. Throws if either is refused.
    virtual QCoro::Task<> eject(QUrl volumeURL, std::stop_token stop) = 0;
};

} // namespace tonearm
