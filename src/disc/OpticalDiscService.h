// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "disc/OpticalDiscScanning.h"
#include "disc/VolumeListing.h"
#include "support/SerialExecutor.h"

#include <memory>

namespace tonearm {

/// Finds audio CDs among the mounted volumes. Keeps nothing: every scan starts afresh, in the order of
/// the mount table, and takes as long as the drives take to answer.
class OpticalDiscService : public OpticalDiscScanning
{
public:
    explicit OpticalDiscService(std::shared_ptr<const VolumeListing> volumes);

    QCoro::Task<QList<DiscInfo>> scan(std::stop_token stop) override;

private:
    std::shared_ptr<const VolumeListing> m_volumes;
    SerialExecutor m_executor;
};

} // namespace tonearm
