// SPDX-License-Identifier: GPL-3.0-or-later
#include "cddafs/EndWatch.h"

#include "tools/Pidfd.h"

#include <poll.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <utility>

namespace tonearm {

namespace {

// A thread inherits what its maker blocks; signals to the program are for its main thread.
class SignalsBlocked
{
public:
    SignalsBlocked()
    {
        sigset_t all;
        ::sigfillset(&all);
        ::pthread_sigmask(SIG_SETMASK, &all, &m_before);
    }

    ~SignalsBlocked() { ::pthread_sigmask(SIG_SETMASK, &m_before, nullptr); }

    SignalsBlocked(const SignalsBlocked &) = delete;
    SignalsBlocked &operator=(const SignalsBlocked &) = delete;

private:
    sigset_t m_before = {};
};

// Invalid if the process is no longer our parent: then it has ended.
FileDescriptor parentDescriptor(pid_t parent)
{
    FileDescriptor descriptor(::pidfd_open(parent, 0));
    return ::getppid() == parent ? std::move(descriptor) : FileDescriptor();
}

} // namespace

EndWatch::EndWatch(std::optional<pid_t> parent, std::function<bool()> isPresent, std::function<void()> onEnd,
                   std::chrono::milliseconds interval)
    : m_parent(parent ? parentDescriptor(*parent) : FileDescriptor())
    , m_stop(Pipe::open())
{
    const bool isOrphan = parent && m_parent.number() < 0;
    const SignalsBlocked blocked;
    m_thread = std::thread([=, this] {
        if (!isOrphan && !isNeedless(isPresent, interval))
            return;
        // A signal that comes at the wrong moment may be missed, so once isn't enough.
        do
            onEnd();
        while (wait(interval));
    });
}

EndWatch::~EndWatch()
{
    m_stop.writeEnd.close();
    m_thread.join();
}

bool EndWatch::wait(std::chrono::milliseconds interval) const
{
    pollfd stop = {.fd = m_stop.readEnd.number(), .events = POLLIN, .revents = 0};
    return ::poll(&stop, 1, static_cast<int>(interval.count())) == 0;
}

bool EndWatch::isNeedless(const std::function<bool()> &isPresent, std::chrono::milliseconds interval) const
{
    // poll passes over a negative descriptor.
    std::array<pollfd, 2> descriptors = {
        pollfd{.fd = m_stop.readEnd.number(), .events = POLLIN, .revents = 0},
        pollfd{.fd = m_parent.number(), .events = POLLIN, .revents = 0}};
    while (isPresent()) {
        ::poll(descriptors.data(), descriptors.size(), static_cast<int>(interval.count()));
        if (descriptors[0].revents != 0)
            return false;
        if (descriptors[1].revents != 0)
            return true;
    }
    return true;
}

} // namespace tonearm
