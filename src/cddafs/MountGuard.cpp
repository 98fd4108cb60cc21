// SPDX-License-Identifier: GPL-3.0-or-later
#include "cddafs/MountGuard.h"

#include "cddafs/CddafsError.h"
#include "tools/Spawning.h"

#include <sys/wait.h>
#include <unistd.h>

#include <array>

namespace tonearm {

namespace {

constexpr const char *script = R"(read -r word && exit
fusermount3 -u -q -z -- "$1"
[ -z "$2" ] || rmdir -- "$1")";

} // namespace

MountGuard::MountGuard(const QByteArray &mountPoint, bool removesFolder)
    : m_pipe(Pipe::open())
{
    QByteArray path = mountPoint;
    QByteArray removal = removesFolder ? "remove" : "";
    std::array<QByteArray, 4> words = {"sh", "-c", script, "mount-guard"};
    std::array<char *, 7> arguments = {words[0].data(), words[1].data(), words[2].data(), words[3].data(),
                                       path.data(),     removal.data(),  nullptr};
    // What ends a person's shell or its programs isn't meant for the guard.
    const SpawnAttributes ownSession(POSIX_SPAWN_SETSID);
    // Nothing for output that a reader of this program's output would wait for.
    SpawnDescriptors descriptors;
    descriptors.duplicate(m_pipe.readEnd.number(), STDIN_FILENO);
    descriptors.openToWrite("/dev/null", STDOUT_FILENO);
    descriptors.duplicate(STDOUT_FILENO, STDERR_FILENO);
    if (::posix_spawn(&m_shell, "/bin/sh", descriptors.get(), ownSession.get(), arguments.data(), environ) !=
        0)
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
