// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/ChildProcess.h"

#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <system_error>

namespace tonearm::test {

namespace {

// Leaves without the exit handlers of the test program.
[[noreturn]] void runAndLeave(const std::function<void()> &body)
{
    try {
        body();
    } catch (...) {
        _exit(EXIT_FAILURE);
    }
    _exit(EXIT_SUCCESS);
}

} // namespace

ChildProcess::ChildProcess(const std::function<void()> &body)
    : m_id(::fork())
{
    if (m_id < 0)
        throw std::system_error(errno, std::generic_category(), "fork");
    if (m_id == 0)
        runAndLeave(body);
}

ChildProcess::~ChildProcess()
{
    if (!hasEnded()) {
        kill();
        collect(0);
    }
}

bool ChildProcess::hasEnded()
{
    collect(WNOHANG);
    return m_isCollected;
}

bool ChildProcess::succeeded()
{
    collect(0);
    return WIFEXITED(m_status) && WEXITSTATUS(m_status) == EXIT_SUCCESS;
}

void ChildProcess::kill() const
{
    ::kill(m_id, SIGKILL);
}

void ChildProcess::collect(int options)
{
    if (!m_isCollected)
        m_isCollected = ::waitpid(m_id, &m_status, options) == m_id;
}

} // namespace tonearm::test
