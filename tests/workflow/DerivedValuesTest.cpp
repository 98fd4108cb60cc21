// SPDX-License-Identifier: GPL-3.0-or-later
// What the model derives from its fields.
#include "helpers/ModelFixture.h"
#include "helpers/Printing.h"
#include "helpers/ScriptedTools.h"

#include <gtest/gtest.h>

#include <QDir>

namespace tonearm {

using namespace Qt::StringLiterals;
using test::ModelFixture;
using test::ScriptedTools;
using Kind = WorkflowState::Kind;

namespace {

ChapterInfo chapterTitled(const QString &title)
{
    return {.id = 0, .startSeconds = 0, .endSeconds = 1, .originalTitle = u"One"_s, .mappedTitle = title};
}

// A model with all that encoding needs, set by hand.
void fill(AppModel &model)
{
    model.ffmpegStatus = FFmpegInstallation();
    model.inputFileURL = QUrl::fromLocalFile(u"/films/a.mkv"_s);
    model.outputFolderURL = QUrl::fromLocalFile(u"/music"_s);
    model.chapters = QList{chapterTitled(u"One"_s), chapterTitled(u"Two"_s)};
}

} // namespace

TEST(AppModel, StartsEmpty)
{
    ModelFixture fixture;
    const AppModel &model = fixture.model();
    EXPECT_FALSE(model.inputFileURL.value());
    EXPECT_FALSE(model.outputFolderURL.value());
    for (const QProperty<QString> *field : {&model.artist, &model.albumTitle, &model.albumYear, &model.genre,
                                            &model.discNumber, &model.discTotal, &model.progressMessage})
        EXPECT_EQ(field->value(), QString());
    EXPECT_TRUE(model.detectedDiscs.value().isEmpty());
    EXPECT_FALSE(model.loadedDisc.value());
    EXPECT_TRUE(model.searchResults.value().isEmpty());
    EXPECT_FALSE(model.selectedReleaseID.value());
    EXPECT_FALSE(model.selectedRelease.value());
    EXPECT_TRUE(model.searchNotices.value().isEmpty());
    EXPECT_FALSE(model.isShowingSearchResults.value());
    EXPECT_FALSE(model.isLoadingReleases.value());
    EXPECT_FALSE(model.loadingReleaseID.value());
    EXPECT_FALSE(model.coverArt.value());
    EXPECT_FALSE(model.coverArtPreview.value());
    EXPECT_FALSE(model.coverArtOrigin.value());
    EXPECT_FALSE(model.isFetchingArtwork.value());
    EXPECT_FALSE(model.isPreparingCoverArt.value());
    EXPECT_TRUE(model.trackVerifications.value().isEmpty());
    EXPECT_FALSE(model.previewingChapterID.value());
    EXPECT_FALSE(model.preparingPreviewChapterID.value());
    EXPECT_TRUE(model.chapters.value().isEmpty());
    EXPECT_FALSE(model.sourceAudio.value());
    EXPECT_EQ(model.currentState.value(), WorkflowState(Kind::idle));
    EXPECT_EQ(model.encodingProgress.value(), 0.0);
    EXPECT_TRUE(model.encodedFiles.value().isEmpty());
    EXPECT_FALSE(model.lastLogURL.value());
    EXPECT_FALSE(model.lastOutputFolder.value());
    EXPECT_FALSE(model.completion.value());
    EXPECT_FALSE(model.alert.value());
    EXPECT_FALSE(model.pendingSourceChange.value());
    EXPECT_FALSE(model.pendingOverwrite.value());
    EXPECT_FALSE(model.pendingClose.value());
    EXPECT_EQ(model.ffmpegStatus.value(), FFmpegStatus(FFmpegChecking{}));
    EXPECT_FALSE(model.didJustFindFFmpeg.value());
    EXPECT_FALSE(model.cdParanoiaInstallation.value());
}

TEST(AppModel, StartsWithoutTasks)
{
    ModelFixture fixture;
    const AppModel &model = fixture.model();
    EXPECT_FALSE(model.searchTask.value());
    EXPECT_FALSE(model.encodingTask.value());
    EXPECT_FALSE(model.previewTask.value());
    EXPECT_FALSE(model.ffmpegCheckTask.value());
    EXPECT_FALSE(model.confirmationTask.value());
    EXPECT_FALSE(model.paranoiaCheckTask.value());
}

TEST(AppModel, StartsWithTheDefaultOutputFolder)
{
    const QUrl folder = QUrl::fromLocalFile(u"/music/rips"_s);
    ModelFixture fixture({.defaultOutputDirectory = folder});
    EXPECT_EQ(fixture->outputFolderURL.value(), folder);
    fixture.settings().setDefaultOutputDirectory(QUrl::fromLocalFile(u"/elsewhere"_s));
    EXPECT_EQ(fixture->outputFolderURL.value(), folder);
}

TEST(StatusText, GoesByTheState)
{
    ModelFixture fixture;
    AppModel &model = fixture.model();
    model.chapters = QList{chapterTitled(u"One"_s)};
    model.progressMessage = u"So far."_s;
    const QList<std::pair<WorkflowState, QString>> texts = {
        {Kind::idle, u"So far."_s},
        {Kind::extractingChapters, u"Reading chapters…"_s},
        {Kind::readingDisc, u"Reading the disc…"_s},
        {Kind::searchingMetadata, u"Searching MusicBrainz and Discogs…"_s},
        {Kind::awaitingUserMapping, u"So far."_s},
        {Kind::encoding, u"So far."_s},
        {Kind::complete, u"So far."_s},
        {WorkflowState::error(u"No good."_s), u"No good."_s},
    };
    for (const auto &[state, text] : texts) {
        model.currentState = state;
        EXPECT_EQ(model.statusText(), text);
    }
}

TEST(StatusText, IsEmptyWhenIdleWithoutChapters)
{
    ModelFixture fixture;
    fixture->progressMessage = u"So far."_s;
    EXPECT_EQ(fixture->statusText(), QString());
}

TEST(CanEncode, HoldsWithEverythingThere)
{
    ModelFixture fixture;
    fill(fixture.model());
    for (const WorkflowState &state : {WorkflowState(Kind::idle), WorkflowState(Kind::extractingChapters),
                                       WorkflowState(Kind::complete), WorkflowState::error(u"A"_s)}) {
        fixture->currentState = state;
        EXPECT_TRUE(fixture->canEncode());
    }
}

TEST(CanEncode, NeedsEachThing)
{
    const QList<void (*)(AppModel &)> losses = {
        [](AppModel &model) { model.ffmpegStatus = FFmpegMissing{}; },
        [](AppModel &model) { model.ffmpegStatus = FFmpegChecking{}; },
        [](AppModel &model) { model.inputFileURL = std::nullopt; },
        [](AppModel &model) { model.outputFolderURL = std::nullopt; },
        [](AppModel &model) { model.chapters = QList<ChapterInfo>(); },
        [](AppModel &model) { model.setMappedTitle(1, QString()); },
        [](AppModel &model) { model.setMappedTitle(1, u" \n\t\u3000"_s); },
        [](AppModel &model) { model.encodingTask = TaskHandle(); },
    };
    for (qsizetype index = 0; index < losses.size(); ++index) {
        ModelFixture fixture;
        fill(fixture.model());
        losses[index](fixture.model());
        EXPECT_FALSE(fixture->canEncode()) << "after loss " << index;
    }
}

TEST(UntitledChapters, AreThoseWhoseTitleIsBlank)
{
    ModelFixture fixture;
    const QList<ChapterInfo> chapters = {chapterTitled(u"One"_s), chapterTitled(u" \n"_s), chapterTitled({}),
                                         chapterTitled(u" Two "_s)};
    fixture->chapters = chapters;
    EXPECT_EQ(fixture->untitledChapters(), (QList{chapters[1], chapters[2]}));
}

TEST(SourceName, IsTheFilesName)
{
    ModelFixture fixture;
    EXPECT_FALSE(fixture->hasSource());
    EXPECT_EQ(fixture->sourceName(), std::nullopt);
    fixture->inputFileURL = QUrl::fromLocalFile(u"/films/50% #1?.mkv"_s);
    EXPECT_TRUE(fixture->hasSource());
    EXPECT_EQ(fixture->sourceName(), u"50% #1?.mkv"_s);
}

TEST(CurrentMetadata, TrimsTheNamesAndNothingElse)
{
    ModelFixture fixture;
    fixture->artist = u" \nThe  Artist\t\n"_s;
    fixture->albumTitle = u" The Album "_s;
    fixture->genre = u" Rock\n"_s;
    fixture->albumYear = u" 1999 "_s;
    fixture->discNumber = u" 1 "_s;
    fixture->discTotal = u" 2\n"_s;
    const AudioMetadata expected = {.artist = u"The  Artist"_s,
                                    .album = u"The Album"_s,
                                    .year = u" 1999 "_s,
                                    .genre = u"Rock"_s,
                                    .discNumber = u" 1 "_s,
                                    .discTotal = u" 2\n"_s};
    EXPECT_EQ(fixture->currentMetadata(), expected);
}

TEST(DestinationFolder, IsAbsentWithoutAnOutputFolder)
{
    ModelFixture fixture;
    fixture->artist = u"The Artist"_s;
    EXPECT_EQ(fixture->destinationFolder(), std::nullopt);
    EXPECT_EQ(fixture->destinationSubpath(), std::nullopt);
}

TEST(DestinationFolder, IsOrganizedByArtistAndAlbum)
{
    ModelFixture fixture;
    fixture->outputFolderURL = QUrl::fromLocalFile(u"/music"_s);
    EXPECT_EQ(fixture->destinationFolder(), QUrl::fromLocalFile(u"/music"_s));
    EXPECT_EQ(fixture->destinationSubpath(), std::nullopt);
    fixture->albumTitle = u"AC/DC: Live "_s;
    EXPECT_EQ(fixture->destinationFolder(), QUrl::fromLocalFile(u"/music/AC-DC- Live"_s));
    EXPECT_EQ(fixture->destinationSubpath(), u"AC-DC- Live"_s);
    fixture->artist = u"50% #1?"_s;
    EXPECT_EQ(fixture->destinationFolder(), QUrl::fromLocalFile(u"/music/50% #1/AC-DC- Live"_s));
    EXPECT_EQ(fixture->destinationSubpath(), u"50% #1/AC-DC- Live"_s);
}

TEST(DestinationFolder, IsTheOutputFolderItselfWithoutOrganizing)
{
    ModelFixture fixture;
    fixture.settings().setOrganizeIntoArtistAlbumFolders(false);
    fixture->outputFolderURL = QUrl::fromLocalFile(u"/music"_s);
    fixture->artist = u"The Artist"_s;
    EXPECT_EQ(fixture->destinationFolder(), QUrl::fromLocalFile(u"/music"_s));
    EXPECT_EQ(fixture->destinationSubpath(), std::nullopt);
}

TEST(DestinationSubpath, LooksThroughTheWayThatThePathIsWritten)
{
    ModelFixture fixture;
    fixture->artist = u"The Artist"_s;
    for (const QString &folder : {u"/"_s, u"/music/"_s, u"/music/../music//x/."_s}) {
        fixture->outputFolderURL = QUrl::fromLocalFile(folder);
        EXPECT_EQ(fixture->destinationSubpath(), u"The Artist"_s) << folder.toStdString();
    }
}

TEST(YearWarning, AppearsForAYearWithoutFourDigits)
{
    const QString warning = u"Year needs four digits, e.g. 1969 — it won't be tagged as it stands."_s;
    ModelFixture fixture;
    for (const QString &year : {u""_s, u"  \t"_s, u"1969"_s, u" May 1969 "_s, u"12345"_s, u"c. 1999-03"_s}) {
        fixture->albumYear = year;
        EXPECT_EQ(fixture->yearWarning(), std::nullopt) << year.toStdString();
    }
    // Line ends aren't blanks here.
    for (const QString &year : {u"69"_s, u"19 69"_s, u"x"_s, u"\n"_s}) {
        fixture->albumYear = year;
        EXPECT_EQ(fixture->yearWarning(), warning) << year.toStdString();
    }
}

TEST(ClearButtonTitle, IsClearForAFile)
{
    ModelFixture fixture;
    fixture->inputFileURL = QUrl::fromLocalFile(u"/films/a.mkv"_s);
    for (const bool ejects : {true, false}) {
        fixture.settings().setEjectDiscAfterRipping(ejects);
        EXPECT_EQ(fixture->clearButtonTitle(), u"Clear"_s);
    }
}

} // namespace tonearm
