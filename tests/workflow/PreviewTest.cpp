// SPDX-License-Identifier: GPL-3.0-or-later
// Playing the start of a chapter.
#include "helpers/Await.h"
#include "helpers/ModelFixture.h"
#include "helpers/Printing.h"
#include "helpers/Sources.h"

#include <gtest/gtest.h>

#include <QDir>

namespace tonearm {

using namespace Qt::StringLiterals;
using namespace test;

namespace {

class Preview : public testing::Test
{
protected:
    void SetUp() override { m_fixture.prepareJob(plainSource()); }

    ChapterInfo chapter(qsizetype index) { return m_model.chapters.value()[index]; }

    void play(qsizetype index)
    {
        m_model.togglePreview(chapter(index));
        EXPECT_EQ(m_model.preparingPreviewChapterID.value(), chapter(index).id);
        ASSERT_TRUE(eventually([this] { return !m_model.preparingPreviewChapterID.value(); }));
    }

    QStringList previewFiles() const
    {
        return QDir(m_fixture.path(u"Tonearm/Previews"_s)).entryList(QDir::Files);
    }

    ModelFixture m_fixture;
    AppModel &m_model = m_fixture.model();
};

} // namespace

TEST_F(Preview, PlaysToItsEnd)
{
    play(1);
    EXPECT_EQ(m_model.previewingChapterID.value(), chapter(1).id);
    EXPECT_FALSE(m_model.previewTask.value());
    EXPECT_EQ(m_fixture.sounds().started().size(), 1);
    m_fixture.sounds().finish();
    EXPECT_TRUE(eventually([this] { return !m_model.previewingChapterID.value(); }));
}

TEST_F(Preview, StopsWhenItIsPressedAgain)
{
    play(0);
    m_model.togglePreview(chapter(0));
    EXPECT_FALSE(m_model.previewingChapterID.value());
    EXPECT_EQ(m_fixture.sounds().openCount(), 0);
}

TEST_F(Preview, GivesWayToAnother)
{
    play(0);
    play(1);
    EXPECT_EQ(m_model.previewingChapterID.value(), chapter(1).id);
    EXPECT_EQ(m_fixture.sounds().openCount(), 1);
}

TEST_F(Preview, StartsAgainWhileItIsPrepared)
{
    m_model.togglePreview(chapter(0));
    m_model.togglePreview(chapter(0));
    EXPECT_EQ(m_model.preparingPreviewChapterID.value(), chapter(0).id);
    ASSERT_TRUE(eventually([this] { return m_model.previewingChapterID.value().has_value(); }));
    EXPECT_EQ(m_model.previewingChapterID.value(), chapter(0).id);
    EXPECT_FALSE(m_model.alert.value());
}

TEST_F(Preview, StopsWhenAJobBegins)
{
    play(0);
    m_model.startEncoding();
    ASSERT_TRUE(eventually([this] { return m_model.encodingTask.value().has_value(); }));
    EXPECT_FALSE(m_model.previewingChapterID.value());
    EXPECT_FALSE(m_model.canPreview());
    m_model.togglePreview(chapter(0));
    EXPECT_FALSE(m_model.preparingPreviewChapterID.value());
    ASSERT_TRUE(eventually([this] { return !m_model.encodingTask.value(); }, 20000));
}

TEST_F(Preview, TellsWhyItCantBePlayed)
{
    m_fixture.sounds().refuses = true;
    play(0);
    EXPECT_FALSE(m_model.previewingChapterID.value());
    ASSERT_TRUE(m_model.alert.value());
    EXPECT_EQ(m_model.alert.value()->title, u"Couldn't Play Preview"_s);
}

TEST_F(Preview, IsSilentWhenItIsStoppedInTime)
{
    m_model.togglePreview(chapter(0));
    m_model.stopPreview();
    EXPECT_FALSE(m_model.preparingPreviewChapterID.value());
    m_fixture.settle();
    EXPECT_FALSE(m_model.alert.value());
    EXPECT_FALSE(m_model.previewingChapterID.value());
}

TEST_F(Preview, IsDroppedWithItsSource)
{
    play(0);
    ASSERT_FALSE(previewFiles().isEmpty());
    m_model.clearInputs();
    EXPECT_FALSE(m_model.previewingChapterID.value());
    EXPECT_EQ(m_fixture.sounds().openCount(), 0);
    EXPECT_TRUE(eventually([this] { return previewFiles().isEmpty(); }));
}

TEST_F(Preview, IsDroppedWhenAnotherSourceComes)
{
    play(0);
    ASSERT_FALSE(previewFiles().isEmpty());
    m_model.loadFile(QUrl::fromLocalFile(plainSource()));
    EXPECT_FALSE(m_model.previewingChapterID.value());
    EXPECT_EQ(m_fixture.sounds().openCount(), 0);
    EXPECT_TRUE(eventually([this] { return previewFiles().isEmpty(); }));
}

} // namespace tonearm
