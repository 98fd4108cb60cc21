// SPDX-License-Identifier: GPL-3.0-or-later
#include "cddafs/MountGuard.h"

#include "cddafs/CddafsError.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>

namespace tonearm {

namespace {

constexpr const char *script = R"(read -r word && exit
fusermount3 -u -q -z -- "$1"
[ -z "$2" ] || rmdir -- "$1")";

// What ends a person's shell or its programs isn't meant for the guard.
class OwnSession
{
public:
    OwnSession()
    {
        sigset_t all;
        ::sigfillset(&all);
        sigset_t none;
        ::sigemptyset(&none);
        ::posix_spawnattr_init(&m_attributes);
        ::posix_spawnattr_setsigdefault(&m_attributes, &all);
        ::posix_spawnattr_setsigmask(&m_attributes, &none);
        ::posix_spawnattr_setflags(&m_attributes,
                                   POSIX_SPAWN_SETSID | POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETSIGMASK);
    }

    ~OwnSession() { ::posix_spawnattr_destroy(&m_attributes); }

    OwnSession(const OwnSession &) = delete;
    OwnSession &operator=(const OwnSession &) = delete;

    const posix_spawnattr_t *get() const { return &m_attributes; }

private:
    posix_spawnattr_t m_attributes = {};
};

// The pipe for input; nothing that a reader of this program's output would wait for.
class GuardDescriptors
{
public:
    explicit GuardDescriptors(int input)
    {
        ::posix_spawn_file_actions_init(&m_actions);
        ::posix_spawn_file_actions_adddup2(&m_actions, input, STDIN_FILENO);
        ::posix_spawn_file_actions_addopen(&m_actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
        ::posix_spawn_file_actions_adddup2(&m_actions, STDOUT_FILENO, STDERR_FILENO);
    }

    ~GuardDescriptors() { ::posix_spawn_file_actions_destroy(&m_actions); }

    GuardDescriptors(const GuardDescriptors &) = delete;
    GuardDescriptors &operator=(const GuardDescriptors &) = delete;

    const posix_spawn_file_actions_t *get() const { return &m_actions; }

private:
    posix_spawn_file_actions_t m_actions = {};
};

} // namespace

MountGuard::MountGuard(const QByteArray &mountPoint, bool removesFolder)
    : m_pipe(Pipe::open())
{
    QByteArray path = mountPoint;
    QByteArray removal = removesFolder ? "remove" : "";
    std::array<QByteArray, 4> words = {"sh", "-c", script, "mount-guard"};
    std::array<char *, 7> arguments = {words[0].data(), words[1].data(), words[2].data(), words[3].data(),
                                       path.data(),     removal.data(),  nullptr};
    const OwnSession session;
    const GuardDescriptors descriptors(m_pipe.readEnd.number());
    if (::posix_spawn(&m_shell, "/bin/sh", descriptors.get(), session.get(), arguments.data(), environ) != 0)
        throw CddafsError("/bin/sh can't be started.");
    m_pipe.readEnd.close();
}

MountGuard::~MountGuard()
{
    constexpr char word = '\n';
    // Should somebody have killed the shell, there is nobody to tell.
    static_cast<void>(!::write(m_pipe.writeEnd.number(), &word, sizeof word));
    m_pipe.writeEnd.close();
    ::waitpid(m_shell, nullptr, 0);
}

} // namespace tonearm
