// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/Census.h"

#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <thread>

namespace tonearm::test {

namespace {

// What the system tells of a process or a thread; without a parent if it has just gone.
struct Status
{
    char state = '\0';
    int parent = 0;
    unsigned flags = 0;
};

Status statusIn(const std::filesystem::path &folder)
{
    std::ifstream file(folder / "stat");
    std::string line;
    std::getline(file, line);
    Status status;
    const std::size_t endOfName = line.rfind(')'); // the name itself can hold anything
    if (endOfName == std::string::npos)
        return status;
    std::istringstream fields(line.substr(endOfName + 1));
    int passedOver = 0;
    fields >> status.state >> status.parent;
    fields >> passedOver >> passedOver >> passedOver >> passedOver >> status.flags;
    return status;
}

template <typename Condition> std::size_t countIn(const char *folder, Condition condition)
{
    const std::filesystem::directory_iterator entries(folder);
    return static_cast<std::size_t>(std::count_if(begin(entries), end(entries), condition));
}

// A thread that has been joined is listed for a moment longer, marked as leaving.
bool isStaying(const std::filesystem::directory_entry &thread)
{
    constexpr unsigned leaving = 0x4; // the kernel's PF_EXITING
    const Status status = statusIn(thread.path());
    return status.state != '\0' && (status.flags & leaving) == 0;
}

bool isNumber(const std::string &name)
{
    return std::all_of(name.begin(), name.end(), [](char digit) { return digit >= '0' && digit <= '9'; });
}

bool isOwnChild(const std::filesystem::directory_entry &entry)
{
    return isNumber(entry.path().filename().string()) && statusIn(entry.path()).parent == ::getpid();
}

// ThreadSanitizer starts a thread of its own beside the program's first.
void startThreadOfSanitizer()
{
#ifdef __SANITIZE_THREAD__
    std::thread([] {}).join();
#endif
}

} // namespace

Census Census::take()
{
    startThreadOfSanitizer();
    const auto any = [](const std::filesystem::directory_entry &) { return true; };
    return {countIn("/proc/self/fd", any), countIn("/proc/self/task", isStaying),
            countIn("/proc", isOwnChild)};
}

testing::AssertionResult holdsNoMoreThan(const Census &before)
{
    const Census now = Census::take();
    if (now.descriptors <= before.descriptors && now.threads <= before.threads &&
        now.children <= before.children)
        return testing::AssertionSuccess();
    return testing::AssertionFailure() << now.descriptors << " descriptors instead of " << before.descriptors
                                       << ", " << now.threads << " threads instead of " << before.threads
                                       << ", " << now.children << " children instead of " << before.children;
}

char stateOf(int processId)
{
    return statusIn("/proc/" + std::to_string(processId)).state;
}

} // namespace tonearm::test
