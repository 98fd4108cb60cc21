// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/ChildProcess.h"

#include <QFile>

#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

// glibc before 2.37 declares these two without regard to C++.
extern "C" {
#include <sys/pidfd.h>
}

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

// What becomes of the descriptors in the child.
class FileActions
{
public:
    FileActions(int standardOutput, int standardError)
    {
        check(::posix_spawn_file_actions_init(&m_actions));
        check(::posix_spawn_file_actions_adddup2(&m_actions, standardOutput, STDOUT_FILENO));
        check(::posix_spawn_file_actions_adddup2(&m_actions, standardError, STDERR_FILENO));
        check(::posix_spawn_file_actions_addclosefrom_np(&m_actions, firstDescriptorNotInherited));
    }

    ~FileActions() { ::posix_spawn_file_actions_destroy(&m_actions); }

    FileActions(const FileActions &) = delete;
    FileActions &operator=(const FileActions &) = delete;

    const posix_spawn_file_actions_t *get() const { return &m_actions; }

private:
    posix_spawn_file_actions_t m_actions{};
};

// The child starts with no signal blocked and none ignored, whatever this thread does.
class Attributes
{
public:
    Attributes()
    {
        check(::posix_spawnattr_init(&m_attributes));
        sigset_t none;
        sigset_t all;
        sigemptyset(&none);
        sigfillset(&all);
        check(::posix_spawnattr_setsigmask(&m_attributes, &none));
        check(::posix_spawnattr_setsigdefault(&m_attributes, &all));
        check(::posix_spawnattr_setflags(&m_attributes, POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF));
    }

    ~Attributes() { ::posix_spawnattr_destroy(&m_attributes); }

    Attributes(const Attributes &) = delete;
    Attributes &operator=(const Attributes &) = delete;

    const posix_spawnattr_t *get() const { return &m_attributes; }

private:
    posix_spawnattr_t m_attributes{};
};

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

    const FileActions actions(standardOutput.number(), standardError.number());
    const Attributes attributes;
    pid_t pid = 0;
    check(::posix_spawn(&pid, argv.front(), actions.get(), attributes.get(), argv.data(), environ));

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
