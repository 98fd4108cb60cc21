// SPDX-License-Identifier: GPL-3.0-or-later
// How much longer a run of ProcessRunner takes than the bare launch of the same program.
#include "Turns.h"
#include "tools/ProcessRunner.h"

#include <QCoroTask>

#include <QCoreApplication>
#include <QUrl>

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <stdexcept>
#include <stop_token>
#include <string>
#include <system_error>
#include <thread>
#include <utility>
#include <vector>

namespace tonearm {

namespace {

using namespace Qt::StringLiterals;
using bench::Comparison;

constexpr const char *program = "/bin/true";
constexpr int runsPerRow = 1000;
constexpr int turns = 20;
constexpr std::size_t gigabyte = 1000UL * 1000 * 1000;

void runBareOnce()
{
    std::array<char *, 2> words{const_cast<char *>(program), nullptr}; // NOLINT: as posix_spawn wants it
    pid_t child = 0;
    const int error = ::posix_spawn(&child, program, nullptr, nullptr, words.data(), environ);
    if (error != 0)
        throw std::system_error(error, std::generic_category(), program);
    int status = 0;
    if (::waitpid(child, &status, 0) != child || status != 0)
        throw std::runtime_error("a bare child failed");
}

void runBare(int runs, int atOnce)
{
    std::atomic<int> left = runs;
    const auto runInTurn = [&left] {
        while (left-- > 0)
            runBareOnce();
    };
    std::vector<std::jthread> others;
    for (int lane = 1; lane < atOnce; ++lane)
        others.emplace_back(runInTurn);
    runInTurn();
}

QCoro::Task<> runInTurn(int &left)
{
    const ProcessRunner runner;
    const QUrl url = QUrl::fromLocalFile(QString::fromLatin1(program));
    const QStringList noArguments;
    while (left > 0) {
        --left;
        co_await runner.run(url, noArguments, {}, std::stop_token());
    }
}

QCoro::Task<> runInLanes(int runs, int atOnce)
{
    std::vector<QCoro::Task<>> lanes;
    lanes.reserve(static_cast<std::size_t>(atOnce));
    for (int lane = 0; lane < atOnce; ++lane)
        lanes.push_back(runInTurn(runs));
    for (const QCoro::Task<> &lane : lanes)
        co_await lane;
}

// The time of one run each.
Comparison measure(int atOnce)
{
    constexpr int runsPerTurn = runsPerRow / turns;
    const Comparison times = bench::inTurns(
        turns, [&] { runBare(runsPerTurn, atOnce); },
        [&] { QCoro::waitFor(runInLanes(runsPerTurn, atOnce)); });
    return {.bare = times.bare / runsPerTurn, .own = times.own / runsPerTurn};
}

// The memory of this process that lies in RAM, in megabytes.
double residentMegabytes()
{
    std::ifstream counts("/proc/self/statm");
    std::size_t total = 0;
    std::size_t resident = 0;
    counts >> total >> resident;
    constexpr double megabyte = 1e6;
    return static_cast<double>(resident) * static_cast<double>(::sysconf(_SC_PAGESIZE)) / megabyte;
}

void printRow(int atOnce)
{
    const Comparison row = measure(atOnce);
    std::printf("%10.0f %10d %14.3f %14.3f %8.2f\n", residentMegabytes(), atOnce, row.bare.count(),
                row.own.count(), row.ratio());
}

void printRows()
{
    constexpr int several = 4;
    printRow(1);
    printRow(several);
}

int measureAll()
{
    measure(1); // warms the caches
    std::printf("%d runs of %s, milliseconds for each\n\n", runsPerRow, program);
    std::printf("%10s %10s %14s %14s %8s\n", "memory MB", "at a time", "posix_spawn", "ProcessRunner",
                "ratio");
    printRows();
    const std::vector<char> ballast(2 * gigabyte, 'x');
    printRows();
    return ballast.back() == 'x' ? EXIT_SUCCESS : EXIT_FAILURE;
}

} // namespace

} // namespace tonearm

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    return tonearm::measureAll();
}
