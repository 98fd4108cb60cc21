// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "disc/DiscInfo.h"

#include <QCoroTask>

#include <QList>

#include <stop_token>

namespace tonearm {

/// Knows which audio CDs are in the machine. Callable from any thread with an event loop, on which the
/// result comes back.
class OpticalDiscScanning
{
public:
    virtual ~OpticalDiscScanning() = default;

    /// Every disc that can be read; one that can't is left out. Throws nothing but CancellationError.
    virtual QCoro::Task<QList<DiscInfo>> scan(std::stop_token stop) = 0;

protected:
    OpticalDiscScanning() = default;
    OpticalDiscScanning(const OpticalDiscScanning &) = default;
    OpticalDiscScanning &operator=(const OpticalDiscScanning &) = default;
};

} // namespace tonearm
