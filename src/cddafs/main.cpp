// SPDX-License-Identifier: GPL-3.0-or-later
#include "cddafs/CddafsError.h"
#include "cddafs/CdioDisc.h"
#include "cddafs/CommandLine.h"
#include "cddafs/DiscNames.h"
#include "cddafs/EndWatch.h"
#include "cddafs/FuseVolume.h"
#include "cddafs/MountFolder.h"
#include "cddafs/MountGuard.h"

#include <unistd.h>

#include <csignal>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <optional>

using namespace tonearm;

namespace {

constexpr int failed = 1;
constexpr int misused = 2;

// Links resolved, so that the mount table names the drive itself, and whole, as going to the background
// leaves the current folder.
QByteArray canonicalPath(const QByteArray &path)
{
    std::error_code error;
    const std::filesystem::path result = std::filesystem::canonical(path.toStdString(), error);
    if (error)
        throw CddafsError(path.toStdString() + ": " + error.message());
    return QByteArray::fromStdString(result.string());
}

void mount(const CommandLine &line)
{
    const pid_t parent = line.parentProcess.value_or(::getppid());
    const QByteArray source = canonicalPath(line.disc);
    CdioDisc disc(source);
    if (audioTracks(disc.layout()).isEmpty())
        throw CddafsError("This disc has no audio tracks.");

    std::optional<MountFolder> folder;
    if (!line.parentFolder.isEmpty()) {
        const std::filesystem::path path = std::filesystem::absolute(line.parentFolder.toStdString());
        folder.emplace(QByteArray::fromStdString(path.string()), volumeName(disc.titles().disc));
    }
    const QByteArray mountPoint = folder ? folder->path() : canonicalPath(line.mountPoint);
    const MountGuard guard(mountPoint, folder.has_value());
    FuseVolume volume(volumeFiles(disc.layout(), disc.titles().tracks), disc, source, mountPoint);
    std::printf("%s\n", mountPoint.constData());
    std::fflush(stdout);
    if (line.isBackground)
        volume.goToBackground();
    // The signal ends the serving in the same way as a person's.
    const EndWatch watch(
        line.isBackground ? std::nullopt : std::optional(parent), [&disc] { return disc.isPresent(); },
        [] { ::kill(::getpid(), SIGTERM); });
    volume.serve();
}

int run(const CommandLine &line)
{
    switch (line.task) {
    case CommandLine::Task::showHelp:
        std::fputs(helpText(), stdout);
        return 0;
    case CommandLine::Task::showVersion:
        std::puts("tonearm-cddafs " TONEARM_VERSION);
        return 0;
    case CommandLine::Task::mount:
        mount(line);
        return 0;
    }
    Q_UNREACHABLE();
}

} // namespace

int main(int count, char **words)
{
    // Writing to a pipe that nobody reads is an error, not an end.
    std::signal(SIGPIPE, SIG_IGN);
    try {
        return run(parseCommandLine(QList<QByteArray>(words + 1, words + count)));
    } catch (const UsageError &error) {
        std::fprintf(stderr, "tonearm-cddafs: %s\n%s", error.what(), helpText());
        return misused;
    } catch (const std::exception &error) {
        std::fprintf(stderr, "tonearm-cddafs: %s\n", error.what());
        return failed;
    }
}
