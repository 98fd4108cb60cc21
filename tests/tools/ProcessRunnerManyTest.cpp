// SPDX-License-Identifier: GPL-3.0-or-later
#include "helpers/Await.h"
#include "support/Cancellation.h"
#include "support/SerialExecutor.h"
#include "tools/Census.h"
#include "tools/Scripts.h"
#include "tools/StartedRun.h"

#include <gtest/gtest.h>

#include <list>
#include <memory>
#include <system_error>
#include <vector>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

// How the runs of every kind came out.
struct Tally
{
    int finished = 0;
    int failed = 0;
    int notLaunched = 0;
    int cancelled = 0;

    bool operator==(const Tally &) const = default;
};

std::ostream &operator<<(std::ostream &out, const Tally &tally)
{
    return out << tally.finished << " finished, " << tally.failed << " failed, " << tally.notLaunched
               << " not launched, " << tally.cancelled << " cancelled";
}

enum class Kind { fine, told, failing, missing, cancelled };

QCoro::Task<> runOnce(Kind kind, Tally &tally)
{
    static const QHash<Kind, QString> programs{{Kind::fine, u"/bin/true"_s},
                                               {Kind::told, u"/bin/echo"_s},
                                               {Kind::failing, u"/bin/false"_s},
                                               {Kind::missing, u"/no/such/program"_s},
                                               {Kind::cancelled, u"/bin/cat"_s}};
    const QUrl program = QUrl::fromLocalFile(programs[kind]);
    const QStringList arguments = kind == Kind::cancelled ? QStringList{u"/dev/zero"_s} : QStringList();
    ProcessRunner::LineCallback onLine;
    if (kind == Kind::told)
        onLine = [](const QString &) {};
    std::stop_source stop;
    const QCoro::Task<ProcessRunner::RunResult> run =
        ProcessRunner().run(program, arguments, onLine, stop.get_token());
    if (kind == Kind::cancelled)
        stop.request_stop();
    try {
        co_await run;
        ++tally.finished;
    } catch (const ProcessRunnerError &) {
        ++tally.failed;
    } catch (const std::system_error &) {
        ++tally.notLaunched;
    } catch (const CancellationError &) {
        ++tally.cancelled;
    }
}

// Takes the next run as long as there is one.
QCoro::Task<> runInTurn(int &left, Tally &tally)
{
    constexpr int kinds = 5;
    while (left > 0) {
        --left;
        co_await runOnce(static_cast<Kind>(left % kinds), tally);
    }
}

QCoro::Task<Tally> runAll(int runs, int atOnce)
{
    Tally tally;
    std::vector<QCoro::Task<>> lanes;
    for (int lane = 0; lane < atOnce; ++lane)
        lanes.push_back(runInTurn(runs, tally));
    for (const QCoro::Task<> &lane : lanes)
        co_await lane;
    co_return tally;
}

} // namespace

TEST(ProcessRunner, RunsEightChildrenAtOnce)
{
    const test::Scripts scripts;
    // Each child goes on only when all eight are there.
    const QUrl script =
        scripts.add(u"tool"_s, ": > $here/present.$1\n"
                               "until [ -e $here/present.8 ] && [ $(ls $here | grep -c present) "
                               "-eq 8 ]; do sleep 0.01; done\n"
                               "printf $1; printf $1 >&2");
    std::list<test::StartedRun> runs;
    for (int number = 1; number <= 8; ++number)
        runs.emplace_back(script, QStringList{QString::number(number)});
    int number = 0;
    for (test::StartedRun &started : runs) {
        const QByteArray expected = QByteArray::number(++number);
        EXPECT_EQ(started.outcome(), (ProcessRunner::RunResult{expected, expected}));
    }
}

TEST(ProcessRunner, ServesCallersOnSeveralThreadsAtOnce)
{
    std::list<SerialExecutor> callers;
    std::vector<QCoro::Task<Tally>> tallies;
    for (int caller = 0; caller < 4; ++caller)
        tallies.push_back(callers.emplace_back(u"caller"_s).run([] { return runAll(50, 2); }));
    for (QCoro::Task<Tally> &tally : tallies)
        EXPECT_EQ(test::await(std::move(tally)), (Tally{20, 10, 10, 10}));
}

TEST(ProcessRunner, LeavesNothingBehindAfterAThousandRuns)
{
    QCoro::waitFor(runAll(5, 1)); // what is made once and kept is made now
    const test::Census before = test::Census::take();
    EXPECT_EQ(QCoro::waitFor(runAll(1000, 8)), (Tally{400, 200, 200, 200}));
    EXPECT_TRUE(test::holdsNoMoreThan(before));
}

} // namespace tonearm
