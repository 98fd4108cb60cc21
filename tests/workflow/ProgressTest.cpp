// SPDX-License-Identifier: GPL-3.0-or-later
// What a job tells of its progress.
#include "helpers/Await.h"
#include "helpers/ModelFixture.h"
#include "helpers/Printing.h"
#include "helpers/ScriptedTools.h"
#include "helpers/Sources.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

namespace tonearm {

using namespace Qt::StringLiterals;
using test::ModelFixture;
using test::ScriptedTools;

namespace {

struct Step
{
    QString message;
    double fraction;
};

// Every value that a job's progress takes, with the message of that moment.
class ProgressRecord
{
public:
    explicit ProgressRecord(AppModel &model)
        : m_onProgress(model.encodingProgress.addNotifier([this, &model] {
            m_steps.append({model.progressMessage.value(), model.encodingProgress.value()});
        }))
    {
    }

    QList<double> fractions() const
    {
        QList<double> result;
        for (const Step &step : m_steps)
            result.append(step.fraction);
        return result;
    }

    QStringList messages() const
    {
        QStringList result;
        for (const Step &step : m_steps)
            result.append(step.message);
        return result;
    }

private:
    QList<Step> m_steps;
    QPropertyNotifier m_onProgress;
};

class Progress : public testing::Test
{
protected:
    ScriptedTools m_tools{{{0, 2, u"One"_s}, {2, 6, u"Two"_s}}};
    ModelFixture m_fixture{{.tools = m_tools.location()}};
};

} // namespace

TEST_F(Progress, CountsTheTracksAndTheirFractions)
{
    m_tools.setEncoding(R"(printf 'out_time_us=1000000\nout_time=00:00:02\n' >&2; echo sound > "$output")");
    m_fixture.prepareJob(m_tools.source());
    const ProgressRecord record(m_fixture.model());
    m_fixture.runJob();
    EXPECT_THAT(record.fractions(), testing::ElementsAre(0.25, 0.5, 0.625, 0.75, 1.0));
    EXPECT_THAT(record.messages(), testing::ElementsAre(u"Encoding 1 of 2: One"_s, u"Encoding 1 of 2: One"_s,
                                                        u"Encoding 2 of 2: Two"_s, u"Encoding 2 of 2: Two"_s,
                                                        u"Encoding 2 of 2: Two"_s));
}

TEST_F(Progress, TellsOfATrackAsItBegins)
{
    m_tools.setEncoding(ScriptedTools::waiting("go") + "echo sound > \"$output\"");
    m_fixture.prepareJob(m_tools.source());
    m_fixture->setMappedTitle(0, u" 50% %1 of %3 "_s);
    m_fixture->startEncoding();
    ASSERT_TRUE(test::eventually([this] { return m_tools.hasStarted(1); }));
    EXPECT_EQ(m_fixture->statusText(), u"Encoding 1 of 2:  50% %1 of %3 "_s);
    EXPECT_EQ(m_fixture->encodingProgress.value(), 0.0);
}

TEST_F(Progress, IgnoresStepsBackAndNonsense)
{
    m_tools.setEncoding(R"(printf 'out_time=00:00:01\nout_time=00:00:00.5\nout_time=N/A\nspeed=9\n' >&2
                           printf 'out_time=-00:00:01\nout_time=00:00:99\n' >&2; echo sound > "$output")");
    m_fixture.prepareJob(m_tools.source());
    const ProgressRecord record(m_fixture.model());
    m_fixture.runJob();
    EXPECT_THAT(record.fractions(), testing::ElementsAre(0.25, 0.5, 0.625, 1.0));
}

TEST_F(Progress, IsDroppedAfterTheEnd)
{
    m_tools.setEncoding(R"(trap 'printf "out_time=00:00:01.5\n" >&2; exit 0' TERM
                           printf 'out_time=00:00:01\n' >&2; touch "$here/still"
                           while :; do printf 'out_time=00:00:01.2\n' >&2; sleep 0.01; done)");
    m_fixture.prepareJob(m_tools.source());
    m_fixture->startEncoding();
    ASSERT_TRUE(m_tools.waitFor(u"still"_s));
    m_fixture->cancelEncoding();
    m_fixture.waitForJobEnd();
    const ProgressRecord record(m_fixture.model());
    m_fixture.settle();
    EXPECT_THAT(record.fractions(), testing::IsEmpty());
    EXPECT_EQ(m_fixture->encodingProgress.value(), 0.0);
    EXPECT_EQ(m_fixture->statusText(), u"Encoding cancelled."_s);
}

TEST(RealProgress, RisesFromTrackToTrackToTheEnd)
{
    ModelFixture fixture;
    fixture.prepareJob(test::plainSource());
    const ProgressRecord record(fixture.model());
    fixture.runJob();
    const QList<double> fractions = record.fractions();
    EXPECT_TRUE(std::is_sorted(fractions.begin(), fractions.end()));
    EXPECT_THAT(fractions, testing::Contains(0.5));
    EXPECT_THAT(fractions, testing::Each(testing::AllOf(testing::Ge(0.0), testing::Le(1.0))));
    ASSERT_FALSE(fractions.isEmpty());
    EXPECT_EQ(fractions.last(), 1.0);
}

} // namespace tonearm
