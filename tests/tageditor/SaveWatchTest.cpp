// SPDX-License-Identifier: GPL-3.0-or-later
#include "tageditor/SaveWatch.h"

#include "helpers/Await.h"
#include "helpers/EditorFixture.h"
#include "helpers/FakeDesktop.h"

#include <gtest/gtest.h>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

// The model's fields are set as a save sets them.
class SaveWatchTest : public testing::Test
{
protected:
    void begin()
    {
        m_model.completionMessage = std::nullopt;
        m_model.isSaving = true;
        m_model.saveProgress = 0;
    }

    void end()
    {
        m_model.isSaving = false;
        m_model.saveProgress = 0;
    }

    void finish(const QString &message, bool wasCancelled = false)
    {
        m_model.wasSaveCancelled = wasCancelled;
        m_model.completionMessage = message;
        end();
    }

    bool letsGo()
    {
        return test::eventually([this] { return !m_desktop.isAwake(); }) &&
               m_desktop.progress().last() == std::nullopt;
    }

    test::EditorFixture m_fixture;
    MetadataEditorModel &m_model = m_fixture.model();
    test::FakeDesktop m_desktop;
    test::FakeWorkWindow m_window;
    LongWork m_work{m_desktop};
    SaveWatch m_watch{m_model, m_work, m_window.window()};
};

} // namespace

TEST_F(SaveWatchTest, FollowsARealSave)
{
    m_fixture.songs().makeSong(u"a.flac"_s, test::tagList(u"1"_s, u"1"_s, u"Old"_s));
    m_fixture.open();
    m_fixture.select({u"a.flac"_s});
    EXPECT_TRUE(m_desktop.reasons().isEmpty());
    m_model.setValue(u"New"_s, EditableTagField::artist);
    m_fixture.save();
    EXPECT_TRUE(letsGo());
    // The check of the file and its writing are one piece of work.
    EXPECT_EQ(m_desktop.reasons(), QList{u"Saving tags"_s});
    EXPECT_EQ(m_desktop.results(), (QList{WorkResult{u"Saved 1 file."_s, {}}}));
}

TEST_F(SaveWatchTest, ShowsHowFarTheSaveIs)
{
    begin();
    m_model.saveProgress = 0.5;
    EXPECT_EQ(m_desktop.progress().last(), 0.5);
    end();
    EXPECT_TRUE(letsGo());
    // The model's progress at the end, 0, isn't one.
    EXPECT_EQ(m_desktop.progress().value(m_desktop.progress().size() - 2), 0.5);
}

TEST_F(SaveWatchTest, TellsOfTheEndOnceAndAtTheEnd)
{
    begin();
    m_model.completionMessage = u"Saved 3 files."_s;
    EXPECT_TRUE(m_desktop.results().isEmpty());
    end();
    EXPECT_TRUE(letsGo());
    EXPECT_EQ(m_desktop.results(), (QList{WorkResult{u"Saved 3 files."_s, {}}}));
    m_desktop.click();
    EXPECT_TRUE(m_window.isInFront);
}

TEST_F(SaveWatchTest, DoesNotTellTheUserThatTheyHaveStoppedASave)
{
    begin();
    finish(u"Saved 1 file · saving was cancelled."_s, true);
    EXPECT_TRUE(letsGo());
    EXPECT_TRUE(m_desktop.results().isEmpty());
    begin();
    finish(u"Saved 1 file."_s);
    EXPECT_TRUE(letsGo());
    EXPECT_EQ(m_desktop.results().size(), 1);
}

TEST_F(SaveWatchTest, DoesNotTellWhatTheWindowInFrontShows)
{
    m_window.isInFront = true;
    begin();
    finish(u"Saved 1 file."_s);
    EXPECT_TRUE(letsGo());
    EXPECT_TRUE(m_desktop.results().isEmpty());
}

TEST_F(SaveWatchTest, DoesNotTellAnOldMessageWhenACheckEndsWithAQuestion)
{
    m_model.completionMessage = u"Saved 1 file · 1 held back."_s;
    m_model.isSaving = true;
    end();
    EXPECT_TRUE(letsGo());
    EXPECT_TRUE(m_desktop.results().isEmpty());
}

TEST_F(SaveWatchTest, LetsGoIfItGoesBeforeTheSave)
{
    begin();
    test::FakeDesktop desktop;
    LongWork work(desktop);
    {
        const SaveWatch watch(m_model, work, m_window.window());
        EXPECT_TRUE(desktop.isAwake());
    }
    EXPECT_FALSE(desktop.isAwake());
}

} // namespace tonearm
