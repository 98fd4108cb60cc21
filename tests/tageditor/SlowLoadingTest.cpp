// SPDX-License-Identifier: GPL-3.0-or-later
// What happens while a folder is read.
#include "helpers/Await.h"
#include "helpers/Contents.h"
#include "helpers/EditorFixture.h"
#include "helpers/Printing.h"
#include "helpers/StandInTools.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QSemaphore>
#include <QThreadPool>

#include <memory>
#include <utility>

namespace tonearm {

using namespace Qt::StringLiterals;
using test::EditorFixture;
using Field = EditableTagField;

namespace {

// Keeps all waiting that begins in the background meanwhile.
class BusyBackground
{
public:
    BusyBackground() = default;
    BusyBackground(const BusyBackground &) = delete;
    BusyBackground &operator=(const BusyBackground &) = delete;

    ~BusyBackground() { end(); }

    void begin()
    {
        QThreadPool &pool = *QThreadPool::globalInstance();
        for (int thread = 0; thread < pool.maxThreadCount(); ++thread, ++m_count)
            pool.start([ends = m_ends] { ends->acquire(); });
    }

    void end() { m_ends->release(std::exchange(m_count, 0)); }

private:
    int m_count = 0;
    std::shared_ptr<QSemaphore> m_ends = std::make_shared<QSemaphore>();
};

// An ffprobe that tells when it starts on a file, and waits for the test to let it end.
class SlowLoading : public testing::Test
{
protected:
    SlowLoading()
    {
        m_tools.add(u"ffprobe"_s, "for file; do :; done\nname=$(basename \"$file\")\n"
                                  "touch \"$here/started-$name\"\n"
                                  "while [ ! -e \"$here/go-$name\" ]; do sleep 0.01; done\n"
                                  "echo '{\"streams\": [{\"codec_type\": \"audio\"}],"
                                  " \"format\": {\"tags\": {\"title\": \"'\"$name\"'\"}}}'");
    }

    QUrl makeFolder(const QString &name, int count)
    {
        EXPECT_TRUE(QDir().mkpath(m_fixture.path(name)));
        for (int index = 1; index <= count; ++index)
            test::writeFile(m_fixture.path(u"%1/%1%2.flac"_s.arg(name).arg(index)), "a");
        return m_fixture.url(name);
    }

    bool hasStarted(const QString &name) const { return QFile::exists(m_tools.path(u"started-"_s + name)); }

    void letEnd(const QString &name) { test::writeFile(m_tools.path(u"go-"_s + name), ""); }

    void waitForEnd()
    {
        ASSERT_TRUE(test::eventually([this] { return !m_model.isLoading.value(); }));
    }

    test::StandInTools m_tools;
    EditorFixture m_fixture{m_tools.location()};
    MetadataEditorModel &m_model = m_fixture.model();
};

} // namespace

TEST_F(SlowLoading, ShowsTheRowsBeforeAnyIsRead)
{
    m_model.openFolder(makeFolder(u"f"_s, 6));
    ASSERT_TRUE(m_tools.waitFor(u"started-f4.flac"_s));
    EXPECT_EQ(m_fixture.names().size(), 6);
    EXPECT_EQ(m_fixture.row(u"f1.flac"_s).tags, AudioFileTags());
    EXPECT_EQ(m_fixture.row(u"f1.flac"_s).unreadableReason, std::nullopt);
    EXPECT_FALSE(hasStarted(u"f5.flac"_s));
    letEnd(u"f3.flac"_s);
    EXPECT_TRUE(m_tools.waitFor(u"started-f5.flac"_s));
    EXPECT_TRUE(m_model.selection.value().isEmpty());
    EXPECT_DOUBLE_EQ(m_model.loadProgress.value(), 1.0 / 6);
    EXPECT_FALSE(hasStarted(u"f6.flac"_s));
    for (const QString &name : m_fixture.names())
        letEnd(name);
    ASSERT_NO_FATAL_FAILURE(waitForEnd());
    EXPECT_EQ(m_model.selectionSummary(), u"6 files · 6 selected"_s);
    EXPECT_EQ(m_fixture.row(u"f6.flac"_s).tags.title, u"f6.flac"_s);
}

TEST_F(SlowLoading, EndsInAnOrderThatIsChosenMeanwhile)
{
    const QStringList turned = {u"f3.flac"_s, u"f2.flac"_s, u"f1.flac"_s};
    m_model.openFolder(makeFolder(u"f"_s, 3));
    ASSERT_TRUE(m_tools.waitFor(u"started-f3.flac"_s));
    m_model.setSortOrder({{RowComparator::Key::fileName, Qt::DescendingOrder}});
    EXPECT_EQ(m_fixture.names(), turned);
    for (const QString &name : turned)
        letEnd(name);
    ASSERT_NO_FATAL_FAILURE(waitForEnd());
    EXPECT_EQ(m_fixture.names(), turned);
    EXPECT_EQ(m_fixture.row(u"f1.flac"_s).tags.title, u"f1.flac"_s);
    EXPECT_EQ(m_model.selectionSummary(), u"3 files · 3 selected"_s);
}

TEST_F(SlowLoading, EndsInAnOrderThatIsChosenWhileTheRowsAreArranged)
{
    const QStringList turned = {u"f3.flac"_s, u"f2.flac"_s, u"f1.flac"_s};
    BusyBackground background;
    const auto holding = m_model.loadProgress.addNotifier([&] {
        if (m_model.loadProgress.value() == 1)
            background.begin();
    });
    for (const QString &name : turned)
        letEnd(name);
    m_model.openFolder(makeFolder(u"f"_s, 3));
    EXPECT_TRUE(test::eventually([this] { return m_model.loadProgress.value() == 1; }));
    EXPECT_TRUE(m_model.isLoading.value());
    m_model.setSortOrder({{RowComparator::Key::fileName, Qt::DescendingOrder}});
    background.end();
    ASSERT_NO_FATAL_FAILURE(waitForEnd());
    EXPECT_EQ(m_fixture.names(), turned);
    EXPECT_EQ(m_fixture.row(u"f1.flac"_s).tags.title, u"f1.flac"_s);
}

TEST_F(SlowLoading, GivesWayToANewFolder)
{
    m_model.openFolder(makeFolder(u"f"_s, 2));
    ASSERT_TRUE(m_tools.waitFor(u"started-f2.flac"_s));
    m_model.openFolder(makeFolder(u"g"_s, 3));
    EXPECT_TRUE(m_model.files.value().isEmpty());
    ASSERT_TRUE(m_tools.waitFor(u"started-g3.flac"_s));
    EXPECT_TRUE(m_model.isLoading.value());
    EXPECT_EQ(m_fixture.names(), QStringList({u"g1.flac"_s, u"g2.flac"_s, u"g3.flac"_s}));
    for (const QString &name : m_fixture.names())
        letEnd(name);
    ASSERT_NO_FATAL_FAILURE(waitForEnd());
    EXPECT_EQ(m_model.selectionSummary(), u"3 files · 3 selected"_s);
}

TEST_F(SlowLoading, GivesWayBeforeItHasBegun)
{
    m_model.openFolder(makeFolder(u"f"_s, 2));
    m_model.openFolder(makeFolder(u"g"_s, 1));
    letEnd(u"g1.flac"_s);
    ASSERT_NO_FATAL_FAILURE(waitForEnd());
    EXPECT_EQ(m_fixture.names(), QStringList{u"g1.flac"_s});
}

TEST_F(SlowLoading, LeavesEmptyRowsWhenItIsStopped)
{
    m_model.openFolder(makeFolder(u"f"_s, 6));
    ASSERT_TRUE(m_tools.waitFor(u"started-f4.flac"_s));
    letEnd(u"f1.flac"_s);
    ASSERT_TRUE(m_tools.waitFor(u"started-f5.flac"_s));
    m_model.stopLoading();
    ASSERT_NO_FATAL_FAILURE(waitForEnd());
    EXPECT_EQ(m_model.loadProgress.value(), 0);
    EXPECT_EQ(m_fixture.names().size(), 6);
    EXPECT_EQ(m_fixture.row(u"f1.flac"_s).tags, AudioFileTags());
    EXPECT_TRUE(m_model.selection.value().isEmpty());
    EXPECT_FALSE(hasStarted(u"f6.flac"_s));
}

TEST_F(SlowLoading, EndsWhenTheWindowIsClosedWithoutAQuestion)
{
    m_model.openFolder(makeFolder(u"f"_s, 2));
    ASSERT_TRUE(m_tools.waitFor(u"started-f2.flac"_s));
    EXPECT_TRUE(m_model.requestClose());
    EXPECT_FALSE(m_model.isConfirmingCancel.value());
    EXPECT_TRUE(m_model.files.value().isEmpty());
    ASSERT_NO_FATAL_FAILURE(waitForEnd());
    EXPECT_TRUE(m_model.files.value().isEmpty());
    EXPECT_EQ(m_model.folderURL.value(), std::nullopt);
    EXPECT_FALSE(m_model.hasLoadedFolder.value());
    EXPECT_EQ(m_model.alert.value(), std::nullopt);
}

TEST_F(SlowLoading, IsInterruptedByClosingOnlyAfterAQuestionIfThereAreEdits)
{
    m_model.openFolder(makeFolder(u"f"_s, 2));
    ASSERT_TRUE(m_tools.waitFor(u"started-f2.flac"_s));
    m_fixture.select({u"f1.flac"_s});
    m_model.setValue(u"New"_s, Field::artist);
    ASSERT_TRUE(m_model.hasPendingChanges());
    EXPECT_FALSE(m_model.canSave());
    EXPECT_FALSE(m_model.requestClose());
    EXPECT_TRUE(m_model.isConfirmingCancel.value());
    EXPECT_TRUE(m_model.isLoading.value());
    EXPECT_EQ(m_fixture.names().size(), 2);
    m_model.reset();
    ASSERT_NO_FATAL_FAILURE(waitForEnd());
    EXPECT_TRUE(m_model.files.value().isEmpty());
    EXPECT_EQ(m_model.changes.value(), TagChangeSet());
}

TEST_F(SlowLoading, EndsWithTheModel)
{
    m_model.openFolder(makeFolder(u"f"_s, 6));
    ASSERT_TRUE(m_tools.waitFor(u"started-f4.flac"_s));
    m_fixture.dropModel();
    EXPECT_FALSE(hasStarted(u"f5.flac"_s));
}

} // namespace tonearm
