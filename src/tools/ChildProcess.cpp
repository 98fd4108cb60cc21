// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/ChildProcess.h"

#include "tools/Pidfd.h"
#include "tools/Spawning.h"

#include <QFile>

#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <system_error>
#include <utility>
#include <vector>

namespace tonearm {

namespace {

constexpr int firstDescriptorNotInherited = 3;

void check(int error)
{
    if (error != 0)
        throw std::system_error(error, std::generic_category());
}

std::vector<QByteArray> encoded(const QString &executable, const QStringList &arguments)
{
    std::vector<QByteArray> words{QFile::encodeName(executable)};
    for (const QString &argument : arguments)
        words.push_back(QFile::encodeName(argument));
    return words;
}

} // namespace

ChildProcess::ChildProcess(FileDescriptor pidfd)
    : m_pidfd(std::move(pidfd))
{
}

ChildProcess ChildProcess::launch(const QString &executable, const QStringList &arguments,
                                  const FileDescriptor &standardOutput, const FileDescriptor &standardError)
{
    std::vector<QByteArray> words = encoded(executable, arguments);
    std::vector<char *> argv;
    argv.reserve(words.size() + 1);
    for (QByteArray &word : words)
        argv.push_back(word.data());
    argv.push_back(nullptr);

    SpawnDescriptors descriptors;
    descriptors.duplicate(standardOutput.number(), STDOUT_FILENO);
    descriptors.duplicate(standardError.number(), STDERR_FILENO);
    descriptors.closeFrom(firstDescriptorNotInherited);
    const SpawnAttributes attributes;
    pid_t pid = 0;
    check(::posix_spawn(&pid, argv.front(), descriptors.get(), attributes.get(), argv.data(), environ));

    // The child isn't reaped before wait(), so the number is still its own here.
    const int pidfd = ::pidfd_open(pid, 0);
    if (pidfd < 0) {
        const int reason = errno;
        ::kill(pid, SIGKILL);
        ::waitpid(pid, nullptr, 0);
        check(reason);
    }
    return ChildProcess(FileDescriptor(pidfd));
}

bool ChildProcess::isRunning() const
{
    pollfd exit{m_pidfd.number(), POLLIN, 0};
    // Only a child that is known to have ended counts as that; the look itself may fail.
    return ::poll(&exit, 1, 0) != 1;
}

void ChildProcess::terminate() const
{
    ::pidfd_send_signal(m_pidfd.number(), SIGTERM, nullptr, 0);
}

std::int32_t ChildProcess::wait() const
{
    siginfo_t ended{};
    while (::waitid(P_PIDFD, static_cast<id_t>(m_pidfd.number()), &ended, WEXITED) != 0) {
        if (errno != EINTR)
            throw std::system_error(errno, std::generic_category());
    }
    return ended.si_status;
}

} // namespace tonearm
