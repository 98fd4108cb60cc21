// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "helpers/Await.h"
#include "helpers/PrivateBus.h"
#include "helpers/ServiceStandIn.h"
#include "platform/SessionDesktop.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <memory>

namespace tonearm::test {

/// The desktop's form on two buses of the test's own.
class DesktopFixture : public testing::Test
{
protected:
    // Short, so that tests see progress soon.
    static constexpr std::chrono::milliseconds progressInterval{20};

    DesktopFixture() { makeDesktop(); }

    void makeDesktop()
    {
        const auto open = [](PrivateBus &bus, std::atomic<int> &count) {
            return [connection = bus.connect(), &count] {
                ++count;
                return connection;
            };
        };
        desktop = std::make_unique<SessionDesktop>(open(session, sessionOpenings),
                                                   open(system, systemOpenings), progressInterval);
    }

    /// Waits for so many calls, and fails if there are more by then.
    static bool hasCalls(const ServiceStandIn &service, qsizetype count)
    {
        return eventually([&] { return service.calls().size() >= count; }) && service.calls().size() == count;
    }

    PrivateBus session;
    PrivateBus system;
    std::atomic<int> sessionOpenings = 0;
    std::atomic<int> systemOpenings = 0;
    std::unique_ptr<SessionDesktop> desktop;
};

} // namespace tonearm::test
