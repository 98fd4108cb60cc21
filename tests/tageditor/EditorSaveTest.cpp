// SPDX-License-Identifier: GPL-3.0-or-later
// Saving: which files are written, what is asked, and what is told.
#include "tageditor/EditorSave.h"
#include "helpers/Await.h"
#include "helpers/Contents.h"
#include "helpers/Mutagen.h"
#include "helpers/Printing.h"
#include "helpers/SmallDisk.h"
#include "tageditor/AudioFileTagError.h"
#include "tageditor/FilePath.h"

#include <gtest/gtest.h>

#include <QFile>

namespace tonearm {

using namespace Qt::StringLiterals;
using test::EditorSave;
using Field = EditableTagField;

TEST_F(EditorSave, TouchesNothingButWhatHasChanged)
{
    const QStringList others = {u"a.flac"_s, u"c.flac"_s};
    makeSongs({u"a.flac"_s, u"b.flac"_s, u"c.flac"_s});
    QList<QByteArray> contents;
    QList<std::optional<QDateTime>> dates;
    for (const QString &name : others) {
        contents.append(test::readFile(m_fixture.songs().path(name)));
        dates.append(contentModificationDate(m_fixture.songs().url(name)));
    }
    m_model.setValue(u"Song "_s, Field::title);
    m_fixture.select({u"b.flac"_s});
    m_model.setValue(u"New"_s, Field::artist);
    m_fixture.save();
    expectLine(u"Saved 1 file."_s);
    EXPECT_FALSE(m_model.wasSaveCancelled.value());
    EXPECT_EQ(artistOf(u"b.flac"_s), u"New"_s);
    for (qsizetype index = 0; index < others.size(); ++index) {
        EXPECT_TRUE(test::readFile(m_fixture.songs().path(others[index])) == contents[index]);
        EXPECT_EQ(contentModificationDate(m_fixture.songs().url(others[index])), dates[index]);
    }
    EXPECT_EQ(m_fixture.row(u"b.flac"_s), m_fixture.songs().load(u"b.flac"_s));
    EXPECT_EQ(m_model.selectionSummary(), u"3 files · 1 selected"_s);
    // What waits for the others, though it is no change, still does.
    EXPECT_EQ(m_model.changes.value().fieldEdits.size(), 2);
    EXPECT_EQ(m_model.alert.value(), std::nullopt);
    expectIdle();
}

TEST_F(EditorSave, ReplacesValuesThatDiffered)
{
    makeSongs({u"a.flac"_s, u"b.flac"_s});
    m_model.setValue(u"C"_s, Field::artist);
    m_fixture.save();
    expectLine(u"Saved 2 files."_s);
    EXPECT_EQ(artistOf(u"a.flac"_s), u"C"_s);
    EXPECT_EQ(artistOf(u"b.flac"_s), u"C"_s);
    EXPECT_EQ(m_model.changes.value(), TagChangeSet());
    EXPECT_FALSE(m_model.hasPendingChanges());
}

TEST_F(EditorSave, TellsWhatItDoes)
{
    makeSongs({u"a.flac"_s, u"b.flac"_s});
    m_model.setValue(u"C"_s, Field::artist);
    m_fixture.save();
    EXPECT_EQ(m_statuses, QStringList({u"Checking 1 of 2: a.flac"_s, u"Checking 2 of 2: b.flac"_s,
                                       u"Saving 1 of 2: a.flac"_s, u"Saving 2 of 2: b.flac"_s}));
}

TEST_F(EditorSave, TellsHowFarItIs)
{
    makeSongs({u"a.flac"_s, u"b.flac"_s});
    m_model.dropsUnwritableTags = true;
    m_model.setValue(u"C"_s, Field::artist);
    tell(u"hold"_s, u"b.flac"_s);
    m_model.save();
    ASSERT_TRUE(m_tools.waitFor(u"started-b.flac"_s));
    EXPECT_DOUBLE_EQ(m_model.saveProgress.value(), 0.5);
    EXPECT_FALSE(m_model.canSave());
    m_model.save();
    tell(u"go"_s, u"b.flac"_s);
    m_fixture.waitForSave();
    expectLine(u"Saved 2 files."_s);
}

TEST_F(EditorSave, DoesNothingWhenItCant)
{
    makeSongs({u"a.flac"_s});
    m_model.save();
    EXPECT_FALSE(m_model.isSaving.value());
    m_model.setValue(u"C"_s, Field::artist);
    m_model.ffmpegProblem = u"Missing."_s;
    m_model.save();
    EXPECT_FALSE(m_model.isSaving.value());
}

TEST_F(EditorSave, DropsTagsWithoutAskingIfThatIsTheStandingChoice)
{
    makeMixedSongs();
    m_model.dropsUnwritableTags = true;
    m_fixture.save();
    expectLine(u"Saved 2 files · dropped unwritable tags from 1."_s);
    EXPECT_TRUE(m_statuses.filter(u"Checking"_s).isEmpty());
    ASSERT_EQ(m_model.droppedTagReports.value().size(), 1);
    EXPECT_EQ(m_model.droppedTagReports.value().first().fileName, u"b.m4a"_s);
    EXPECT_EQ(m_model.droppedTagReports.value().first().fileID, m_fixture.songs().url(u"b.m4a"_s));
    EXPECT_EQ(m_model.droppedTagSummary(), u"30 tags dropped from 1 file that couldn't keep them."_s);
    EXPECT_TRUE(m_model.refusedSaves.value().isEmpty());
}

TEST_F(EditorSave, AsksBeforeTagsAreLost)
{
    makeMixedSongs();
    m_fixture.save();
    EXPECT_EQ(m_model.completionMessage.value(), std::nullopt);
    EXPECT_EQ(m_model.pendingSaveTargets.value().size(), 2);
    ASSERT_EQ(m_model.refusedSaves.value().size(), 1);
    EXPECT_EQ(m_model.refusedSaves.value().first().fileName, u"b.m4a"_s);
    EXPECT_EQ(m_model.refusedSaves.value().first().tags.size(), 30);
    EXPECT_TRUE(m_model.refusalMessage().startsWith(u"\"b.m4a\" carries tags"_s));
    EXPECT_EQ(artistOf(u"a.flac"_s), u"a"_s);
    expectIdle();
}

TEST_F(EditorSave, LeavesARefusedFileUnchanged)
{
    makeMixedSongs();
    m_fixture.save();
    m_model.leaveRefusedUnchanged();
    EXPECT_TRUE(m_model.isSaving.value());
    m_fixture.waitForSave();
    expectLine(u"Saved 1 file · 1 held back."_s);
    EXPECT_EQ(artistOf(u"a.flac"_s), u"New"_s);
    EXPECT_EQ(artistOf(u"b.m4a"_s), u"b"_s);
    EXPECT_EQ(m_model.changes.value().fieldEdits.keys(), QList<QUrl>{m_fixture.songs().url(u"b.m4a"_s)});
    EXPECT_TRUE(m_model.refusedSaves.value().isEmpty());
    EXPECT_TRUE(m_model.pendingSaveTargets.value().isEmpty());
}

TEST_F(EditorSave, WritesARefusedFileAnyway)
{
    makeMixedSongs();
    m_fixture.save();
    m_statuses.clear();
    m_model.saveAnyway();
    m_fixture.waitForSave();
    expectLine(u"Saved 2 files · dropped unwritable tags from 1."_s);
    EXPECT_EQ(artistOf(u"b.m4a"_s), u"New"_s);
    EXPECT_TRUE(m_statuses.filter(u"Checking"_s).isEmpty());
    EXPECT_TRUE(m_model.refusedSaves.value().isEmpty());
}

TEST_F(EditorSave, EndsIfNothingButRefusedFilesWasToBeWritten)
{
    makeSongs({u"a.m4a"_s});
    test::addIdentifiers(m_fixture.songs().path(u"a.m4a"_s));
    m_fixture.open();
    m_model.setValue(u"New"_s, Field::artist);
    m_fixture.save();
    ASSERT_EQ(m_model.refusedSaves.value().size(), 1);
    m_model.leaveRefusedUnchanged();
    EXPECT_FALSE(m_model.isSaving.value());
    EXPECT_EQ(m_model.completionMessage.value(), std::nullopt);
    EXPECT_TRUE(m_model.hasPendingChanges());
    EXPECT_EQ(artistOf(u"a.m4a"_s), u"a"_s);
    m_model.saveAnyway();
    EXPECT_FALSE(m_model.isSaving.value());
}

TEST_F(EditorSave, KeepsWhatWasWrittenWhenItIsStopped)
{
    makeSongs({u"a.flac"_s, u"b.flac"_s, u"c.flac"_s});
    m_model.dropsUnwritableTags = true;
    m_model.setValue(u"New"_s, Field::artist);
    tell(u"hold"_s, u"b.flac"_s);
    m_model.save();
    ASSERT_TRUE(m_tools.waitFor(u"started-b.flac"_s));
    m_model.stopSaving();
    m_fixture.waitForSave();
    expectLine(u"Saved 1 file · 2 held back · saving was cancelled."_s);
    EXPECT_TRUE(m_model.wasSaveCancelled.value());
    EXPECT_EQ(artistOf(u"a.flac"_s), u"New"_s);
    EXPECT_EQ(artistOf(u"b.flac"_s), u"b"_s);
    EXPECT_FALSE(QFile::exists(m_tools.path(u"started-c.flac"_s)));
    EXPECT_EQ(m_model.alert.value(), std::nullopt);
    EXPECT_EQ(m_fixture.row(u"a.flac"_s), m_fixture.songs().load(u"a.flac"_s));
    EXPECT_EQ(m_fixture.row(u"c.flac"_s).unreadableReason, std::nullopt);
    expectIdle();
}

TEST_F(EditorSave, HoldsBackTheFileThatItWasStoppedAt)
{
    makeSongs({u"a.flac"_s, u"b.flac"_s, u"c.flac"_s});
    m_model.dropsUnwritableTags = true;
    m_model.setValue(u"New"_s, Field::artist);
    const auto stopping = m_model.saveStatus.addNotifier([this] {
        if (m_model.saveStatus.value() == u"Saving 3 of 3: c.flac"_s)
            m_model.stopSaving();
    });
    m_fixture.save();
    expectLine(u"Saved 2 files · 1 held back · saving was cancelled."_s);
    EXPECT_EQ(artistOf(u"c.flac"_s), u"c"_s);
}

TEST_F(EditorSave, WritesNothingIfTheCheckIsStopped)
{
    makeSongs({u"a.flac"_s});
    m_model.setValue(u"New"_s, Field::artist);
    tell(u"hold"_s, u"a.flac"_s);
    m_model.save();
    ASSERT_TRUE(m_tools.waitFor(u"started-a.flac"_s));
    m_model.stopSaving();
    m_fixture.waitForSave();
    EXPECT_EQ(m_model.completionMessage.value(), std::nullopt);
    EXPECT_TRUE(m_model.hasPendingChanges());
    EXPECT_EQ(artistOf(u"a.flac"_s), u"a"_s);
    EXPECT_TRUE(m_model.refusedSaves.value().isEmpty());
    expectIdle();
}

TEST_F(EditorSave, TellsOfAFileThatCantBeWritten)
{
    makeSongs({u"a.flac"_s});
    m_model.setValue(u"New"_s, Field::artist);
    tell(u"fail"_s, u"a.flac"_s);
    m_fixture.save();
    expectLine(u"No files were saved · 1 held back · 1 couldn't be written."_s);
    ASSERT_EQ(m_model.saveFailures.value().size(), 1);
    const QString reason = m_model.saveFailures.value().first().reason;
    EXPECT_TRUE(reason.contains(u"one two"_s)) << reason.toStdString();
    EXPECT_FALSE(reason.contains(u'\n'));
    expectAlert(u"One File Couldn't Be Saved"_s, u"a.flac — "_s + reason);
    EXPECT_TRUE(m_model.canSave());

    ASSERT_TRUE(QFile::remove(m_tools.path(u"fail-a.flac"_s)));
    m_fixture.save();
    expectLine(u"Saved 1 file."_s);
    EXPECT_TRUE(m_model.saveFailures.value().isEmpty());
    EXPECT_EQ(m_model.alert.value(), std::nullopt);
}

TEST_F(EditorSave, GoesOnAfterAFailure)
{
    makeSongs({u"a.flac"_s, u"b.flac"_s, u"c.flac"_s});
    m_model.setValue(u"New"_s, Field::artist);
    const auto disturbing = m_model.saveStatus.addNotifier([this] {
        if (m_model.saveStatus.value() == u"Saving 1 of 3: a.flac"_s) {
            EXPECT_TRUE(QFile::remove(m_fixture.songs().path(u"a.flac"_s)));
            tell(u"strip"_s, u"c.flac"_s);
        }
    });
    m_fixture.save();
    const QString missing = u"a.flac — \"a.flac\" is no longer there."_s;
    const QString stripped =
        u"c.flac — \"c.flac\" would have discarded these tags, so it was left unchanged:  disc title track"_s;
    expectAlert(u"Some Files Couldn't Be Saved"_s, missing + u'\n' + stripped);
    // The missing file's row is unreadable now, so that nothing is held back for it.
    expectLine(u"Saved 1 file · 1 held back · 2 couldn't be written."_s);
    EXPECT_EQ(m_fixture.row(u"a.flac"_s).unreadableReason, u"Tags couldn't be read."_s);
    EXPECT_EQ(artistOf(u"b.flac"_s), u"New"_s);
    EXPECT_EQ(artistOf(u"c.flac"_s), u"c"_s);
}

TEST_F(EditorSave, ReadsTheWholeFolderAgain)
{
    makeSongs({u"a.flac"_s, u"b.flac"_s});
    m_fixture.select({u"a.flac"_s});
    m_model.setValue(u"9"_s, Field::trackPosition);
    test::writeFile(m_fixture.songs().path(u"b.flac"_s), "damaged");
    m_fixture.save();
    expectLine(u"Saved 1 file."_s);
    EXPECT_EQ(m_fixture.row(u"b.flac"_s).unreadableReason, u"Tags couldn't be read."_s);
    EXPECT_EQ(m_fixture.names(), QStringList({u"b.flac"_s, u"a.flac"_s}));
    EXPECT_FALSE(m_model.isLoading.value());
}

TEST_F(EditorSave, ReadsTheFolderAgainInAnOrderThatIsChosenMeanwhile)
{
    makeSongs({u"a.flac"_s, u"b.flac"_s});
    m_model.setValue(u"New"_s, Field::artist);
    const QSet<QUrl> selected = m_model.selection.value();
    const auto turning = m_model.loadProgress.addNotifier([this] {
        if (m_model.loadProgress.value() > 0)
            m_model.setSortOrder({{RowComparator::Key::fileName, Qt::DescendingOrder}});
    });
    m_fixture.save();
    EXPECT_EQ(m_fixture.names(), QStringList({u"b.flac"_s, u"a.flac"_s}));
    EXPECT_EQ(m_fixture.row(u"a.flac"_s).tags.artist, u"New"_s);
    EXPECT_EQ(m_model.selection.value(), selected);
}

TEST_F(EditorSave, TellsOfAFileOnAReadOnlyDisk)
{
    makeSongs({u"a.flac"_s});
    const QByteArray song = test::readFile(m_fixture.songs().path(u"a.flac"_s));
    const test::SmallDisk disk(m_fixture.path(u"disk"_s), 1024);
    if (!disk.isMounted())
        GTEST_SKIP() << "mounting isn't permitted here";
    test::writeFile(m_fixture.path(u"disk/a.flac"_s), song);
    m_fixture.open(m_fixture.url(u"disk"_s));
    m_model.setValue(u"New"_s, Field::artist);
    const TagChangeSet edits = m_model.changes.value();
    ASSERT_NO_FATAL_FAILURE(disk.makeReadOnly());
    m_fixture.save();
    const QString reason = AudioFileTagError::notWritable(m_fixture.url(u"disk/a.flac"_s)).description();
    expectAlert(u"One File Couldn't Be Saved"_s, u"a.flac — "_s + reason);
    expectLine(u"No files were saved · 1 held back · 1 couldn't be written."_s);
    EXPECT_EQ(m_model.changes.value(), edits);
    EXPECT_TRUE(test::readFile(m_fixture.path(u"disk/a.flac"_s)) == song);
    EXPECT_EQ(test::namesIn(m_fixture.path(u"disk"_s)), QStringList{u"a.flac"_s});
    EXPECT_TRUE(m_fixture.songs().temporaryFiles().isEmpty());
}

TEST_F(EditorSave, IsAskedAboutWhenTheWindowIsToClose)
{
    makeSongs({u"a.flac"_s});
    m_model.setValue(u"New"_s, Field::artist);
    const TagChangeSet edits = m_model.changes.value();
    EXPECT_FALSE(m_model.requestClose());
    EXPECT_TRUE(m_model.isConfirmingCancel.value());
    EXPECT_EQ(m_model.changes.value(), edits);
    m_model.isConfirmingCancel = false;
    EXPECT_EQ(m_model.changes.value(), edits);
    m_model.requestClose();
    m_model.reset();
    EXPECT_FALSE(m_model.isConfirmingCancel.value());
    EXPECT_EQ(m_model.changes.value(), TagChangeSet());
    EXPECT_TRUE(m_model.requestClose());
}

TEST_F(EditorSave, EndsQuietlyWhenTheWindowIsClosed)
{
    makeSongs({u"a.flac"_s, u"b.flac"_s});
    m_model.dropsUnwritableTags = true;
    m_model.setValue(u"New"_s, Field::artist);
    tell(u"hold"_s, u"b.flac"_s);
    m_model.save();
    ASSERT_TRUE(m_tools.waitFor(u"started-b.flac"_s));
    EXPECT_FALSE(m_model.requestClose());
    m_model.reset();
    m_fixture.waitForSave();
    EXPECT_EQ(m_model.completionMessage.value(), std::nullopt);
    EXPECT_EQ(m_model.alert.value(), std::nullopt);
    EXPECT_TRUE(m_model.files.value().isEmpty());
    EXPECT_EQ(artistOf(u"a.flac"_s), u"New"_s);
    EXPECT_EQ(artistOf(u"b.flac"_s), u"b"_s);
    EXPECT_EQ(test::namesIn(m_fixture.songs().path()), QStringList({u"a.flac"_s, u"b.flac"_s}));
    expectIdle();
}

TEST_F(EditorSave, EndsWithTheModel)
{
    makeSongs({u"a.flac"_s});
    m_model.dropsUnwritableTags = true;
    m_model.setValue(u"New"_s, Field::artist);
    tell(u"hold"_s, u"a.flac"_s);
    m_model.save();
    ASSERT_TRUE(m_tools.waitFor(u"started-a.flac"_s));
    m_observer = {};
    m_fixture.dropModel();
    EXPECT_EQ(artistOf(u"a.flac"_s), u"a"_s);
    EXPECT_EQ(test::namesIn(m_fixture.songs().path()), QStringList{u"a.flac"_s});
}

} // namespace tonearm
