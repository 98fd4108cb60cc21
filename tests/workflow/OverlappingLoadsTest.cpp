// SPDX-License-Identifier: GPL-3.0-or-later
// Two files whose inspections overlap: the one that ends last wins.
#include "helpers/Await.h"
#include "helpers/Contents.h"
#include "helpers/ModelFixture.h"
#include "helpers/Printing.h"
#include "helpers/ScriptedTools.h"

#include <gtest/gtest.h>

namespace tonearm {

using namespace Qt::StringLiterals;
using test::ModelFixture;
using test::ScriptedTools;
using Kind = WorkflowState::Kind;

namespace {

// Two files, each of which ffprobe tells of when the test lets it.
class OverlappingLoads : public testing::Test
{
protected:
    OverlappingLoads()
    {
        for (const QString &name : {u"first"_s, u"second"_s}) {
            test::writeFile(m_fixture.path(name + u".mkv"_s), "a");
            test::writeFile(m_tools.path(name + u".json"_s), ScriptedTools::replyFor({{0, 1, name}}));
        }
        m_tools.setProbe("name=$(basename \"$source\" .mkv)\n"
                         "touch \"$here/started-$name\"\n"
                         "while [ ! -e \"$here/go-$name\" ]; do sleep 0.01; done\n"
                         "cat \"$here/$name.json\"");
    }

    // Loads both, one after the other, so that both inspections are under way.
    void loadBoth()
    {
        for (const QString &name : {u"first"_s, u"second"_s}) {
            m_model.loadFile(m_fixture.url(name + u".mkv"_s));
            ASSERT_TRUE(m_tools.waitFor(u"started-"_s + name));
        }
    }

    void letEnd(const QString &name) { m_tools.release(u"go-"_s + name); }

    bool eventuallyShows(const QString &title)
    {
        return test::eventually([&] {
            const QList<ChapterInfo> chapters = m_model.chapters.value();
            return chapters.size() == 1 && chapters[0].mappedTitle == title;
        });
    }

    ScriptedTools m_tools;
    ModelFixture m_fixture{{.tools = m_tools.location()}};
    AppModel &m_model = m_fixture.model();
};

} // namespace

TEST_F(OverlappingLoads, ShowTheSecondFileWhenItEndsLast)
{
    ASSERT_NO_FATAL_FAILURE(loadBoth());
    letEnd(u"first"_s);
    EXPECT_TRUE(eventuallyShows(u"first"_s));
    letEnd(u"second"_s);
    EXPECT_TRUE(eventuallyShows(u"second"_s));
    EXPECT_EQ(m_model.inputFileURL.value(), m_fixture.url(u"second.mkv"_s));
}

TEST_F(OverlappingLoads, ShowTheFirstFilesChaptersWhenItEndsLast)
{
    ASSERT_NO_FATAL_FAILURE(loadBoth());
    letEnd(u"second"_s);
    EXPECT_TRUE(eventuallyShows(u"second"_s));
    letEnd(u"first"_s);
    EXPECT_TRUE(eventuallyShows(u"first"_s));
    EXPECT_EQ(m_model.inputFileURL.value(), m_fixture.url(u"second.mkv"_s));
    EXPECT_EQ(m_model.currentState.value(), WorkflowState(Kind::awaitingUserMapping));
    EXPECT_EQ(m_model.statusText(), u"Found 1 chapter."_s);
}

TEST_F(OverlappingLoads, LoseTheSecondFilesChaptersWhenTheFirstFailsLast)
{
    ASSERT_NO_FATAL_FAILURE(loadBoth());
    letEnd(u"second"_s);
    EXPECT_TRUE(eventuallyShows(u"second"_s));
    test::writeFile(m_tools.path(u"first.json"_s), ScriptedTools::replyFor({}));
    letEnd(u"first"_s);
    EXPECT_TRUE(test::eventually([&] { return m_model.alert.value().has_value(); }));
    EXPECT_EQ(m_model.currentState.value(), WorkflowState::error(u"\"first.mkv\" has no chapter markers."_s));
    EXPECT_TRUE(m_model.chapters.value().isEmpty());
    EXPECT_FALSE(m_model.sourceAudio.value());
    EXPECT_EQ(m_model.inputFileURL.value(), m_fixture.url(u"second.mkv"_s));
}

TEST_F(OverlappingLoads, BringASourceIntoAClearedWindow)
{
    m_model.loadFile(m_fixture.url(u"first.mkv"_s));
    ASSERT_TRUE(m_tools.waitFor(u"started-first"_s));
    m_model.clearInputs();
    EXPECT_EQ(m_model.currentState.value(), WorkflowState(Kind::idle));
    letEnd(u"first"_s);
    EXPECT_TRUE(eventuallyShows(u"first"_s));
    EXPECT_EQ(m_model.currentState.value(), WorkflowState(Kind::awaitingUserMapping));
    EXPECT_FALSE(m_model.hasSource());
    EXPECT_FALSE(m_model.canEncode());
}

} // namespace tonearm
