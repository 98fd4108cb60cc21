// SPDX-License-Identifier: GPL-3.0-or-later
#include "helpers/OrdinaryUser.h"

#include <gtest/gtest.h>

#include <sys/syscall.h>
#include <unistd.h>

#include <thread>

namespace tonearm::test {

void asOrdinaryUser(const std::function<void()> &call)
{
    constexpr uid_t nobody = 65534;
    std::thread thread([&] {
        // The bare system call changes this thread only; the C library's would change all of them.
        const uid_t user = ::geteuid() == 0 ? nobody : ::geteuid();
        ASSERT_EQ(::syscall(SYS_setresuid, user, user, user), 0);
        call();
    });
    thread.join();
}

} // namespace tonearm::test
