// SPDX-License-Identifier: GPL-3.0-or-later
// Who observes the model hears of changes and of nothing else.
#include "helpers/ModelFixture.h"
#include "helpers/Printing.h"
#include "helpers/ScriptedTools.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <utility>

namespace tonearm {

using namespace Qt::StringLiterals;
using test::ModelFixture;
using test::ScriptedTools;
using Kind = WorkflowState::Kind;

namespace {

// How often a field tells of a change while something is done.
template <typename Value> int noticesDuring(QProperty<Value> &field, const std::function<void()> &act)
{
    int count = 0;
    const auto notifier = field.addNotifier([&] { ++count; });
    act();
    return count;
}

// Sets a field, then sets it to an equal value: one notice and no more.
template <typename Value> void expectQuietWhenEqual(QProperty<Value> &field, const Value &value)
{
    EXPECT_EQ(noticesDuring(field, [&] { field = value; }), 1);
    EXPECT_EQ(noticesDuring(field, [&] { field = Value(value); }), 0);
}

// The values that something derived takes, the first one included.
template <typename Value> class Watched
{
public:
    explicit Watched(std::function<Value()> derive)
    {
        m_value.setBinding(std::move(derive));
        m_values.append(m_value.value());
        m_notifier = m_value.addNotifier([this] { m_values.append(m_value.value()); });
    }

    const QList<Value> &values() const { return m_values; }

private:
    QProperty<Value> m_value;
    QList<Value> m_values;
    QPropertyNotifier m_notifier;
};

ChapterInfo chapterNamed(const QString &title)
{
    return {.endSeconds = 1, .originalTitle = title, .mappedTitle = title};
}

} // namespace

TEST(Observers, HearNothingOfAnEqualValue)
{
    ModelFixture fixture;
    AppModel &model = fixture.model();
    const std::optional<QUrl> place = fixture.url(u"a"_s);
    for (auto *field :
         {&model.inputFileURL, &model.outputFolderURL, &model.lastLogURL, &model.lastOutputFolder})
        expectQuietWhenEqual(*field, place);
    for (auto *field : {&model.artist, &model.albumTitle, &model.albumYear, &model.genre, &model.discNumber,
                        &model.discTotal, &model.progressMessage})
        expectQuietWhenEqual(*field, u"text"_s);
    expectQuietWhenEqual(model.chapters, {chapterNamed(u"One"_s)});
    expectQuietWhenEqual(model.sourceAudio, std::optional(AudioStreamInfo{.codecName = u"flac"_s}));
    expectQuietWhenEqual(model.currentState, WorkflowState(Kind::encoding));
    expectQuietWhenEqual(model.currentState, WorkflowState::error(u"No good."_s));
    expectQuietWhenEqual(model.encodingProgress, 0.5);
    expectQuietWhenEqual(model.encodedFiles, {*place});
    expectQuietWhenEqual(model.completion, std::optional(EncodingCompletion()));
    expectQuietWhenEqual(model.alert, std::optional(AlertContent(u"A"_s, u"B"_s)));
    expectQuietWhenEqual(model.pendingSourceChange, std::optional(PendingSourceChange()));
    expectQuietWhenEqual(model.pendingOverwrite, std::optional(PendingOverwrite()));
    expectQuietWhenEqual(model.pendingClose, std::optional(PendingClose()));
    expectQuietWhenEqual(model.ffmpegStatus, FFmpegStatus(FFmpegMissing{u"gone"_s}));
    expectQuietWhenEqual(model.didJustFindFFmpeg, true);
    expectQuietWhenEqual(model.cdParanoiaInstallation, std::optional(CDParanoiaInstallation()));
    expectQuietWhenEqual(model.encodingTask, std::optional(TaskHandle()));
}

TEST(Observers, HearNothingOfATitleThatStaysTheSame)
{
    ModelFixture fixture;
    fixture->chapters = QList{chapterNamed(u"One"_s)};
    EXPECT_EQ(noticesDuring(fixture->chapters, [&] { fixture->setMappedTitle(0, u"One"_s); }), 0);
    EXPECT_EQ(noticesDuring(fixture->chapters, [&] { fixture->resetToSourceTitles(); }), 0);
    EXPECT_EQ(noticesDuring(fixture->chapters, [&] { fixture->setMappedTitle(0, u"Eins"_s); }), 1);
}

TEST(Observers, HearNothingWhenAnEmptyWindowIsCleared)
{
    ModelFixture fixture;
    AppModel &model = fixture.model();
    const auto clear = [&] { model.clearInputs(); };
    EXPECT_EQ(noticesDuring(model.inputFileURL, clear), 0);
    EXPECT_EQ(noticesDuring(model.chapters, clear), 0);
    EXPECT_EQ(noticesDuring(model.artist, clear), 0);
    EXPECT_EQ(noticesDuring(model.currentState, clear), 0);
    EXPECT_EQ(noticesDuring(model.encodingProgress, clear), 0);
}

TEST(Observers, FollowTheStatusLine)
{
    ModelFixture fixture;
    AppModel &model = fixture.model();
    const Watched<QString> status([&] { return model.statusText(); });
    model.progressMessage = u"Hidden while idle."_s;
    model.chapters = QList{chapterNamed(u"One"_s)};
    model.currentState = Kind::extractingChapters;
    model.progressMessage = u"Found 1 chapter."_s;
    model.currentState = Kind::awaitingUserMapping;
    model.currentState = WorkflowState::error(u"No good."_s);
    model.currentState = WorkflowState::error(u"Worse."_s);
    EXPECT_THAT(status.values(),
                testing::ElementsAre(QString(), u"Hidden while idle."_s, u"Reading chapters…"_s,
                                     u"Found 1 chapter."_s, u"No good."_s, u"Worse."_s));
}

TEST(Observers, FollowWhetherEncodingIsPossible)
{
    ModelFixture fixture;
    AppModel &model = fixture.model();
    const Watched<bool> canEncode([&] { return model.canEncode(); });
    model.ffmpegStatus = FFmpegInstallation();
    model.inputFileURL = fixture.url(u"a.mkv"_s);
    model.outputFolderURL = fixture.url(u"out"_s);
    EXPECT_EQ(canEncode.values(), QList{false});
    model.chapters = QList{chapterNamed(u"One"_s)};
    model.setMappedTitle(0, u" "_s);
    model.setMappedTitle(0, u"Eins"_s);
    model.encodingTask = TaskHandle();
    model.encodingTask = std::nullopt;
    EXPECT_EQ(canEncode.values(), (QList{false, true, false, true, false, true}));
}

TEST(Observers, FollowTheDestination)
{
    ModelFixture fixture;
    AppModel &model = fixture.model();
    using Subpath = std::optional<QString>;
    const Watched<Subpath> subpath([&] { return model.destinationSubpath(); });
    model.outputFolderURL = QUrl::fromLocalFile(u"/music"_s);
    model.artist = u"The Artist"_s;
    model.artist = u" The Artist "_s;
    model.albumTitle = u"The Album"_s;
    fixture.settings().setOrganizeIntoArtistAlbumFolders(false);
    fixture.settings().setOrganizeIntoArtistAlbumFolders(true);
    model.outputFolderURL = std::nullopt;
    const QString whole = u"The Artist/The Album"_s;
    EXPECT_EQ(subpath.values(),
              (QList<Subpath>{std::nullopt, u"The Artist"_s, whole, std::nullopt, whole, std::nullopt}));
}

TEST(Observers, FollowTheOtherDerivedValues)
{
    ModelFixture fixture;
    AppModel &model = fixture.model();
    using Text = std::optional<QString>;
    const Watched<Text> name([&] { return model.sourceName(); });
    const Watched<Text> warning([&] { return model.yearWarning(); });
    const Watched<bool> canReveal([&] { return model.canRevealOutput(); });
    const Watched<qsizetype> untitled([&] { return model.untitledChapters().size(); });
    model.inputFileURL = fixture.url(u"a.mkv"_s);
    model.albumYear = u"69"_s;
    model.albumYear = u"1969"_s;
    model.encodedFiles = QList{fixture.url(u"a.flac"_s)};
    model.chapters = QList{chapterNamed(u" "_s), chapterNamed({})};
    EXPECT_EQ(name.values(), (QList<Text>{std::nullopt, u"a.mkv"_s}));
    EXPECT_EQ(warning.values().size(), 3);
    EXPECT_EQ(canReveal.values(), (QList{false, true}));
    EXPECT_EQ(untitled.values(), (QList<qsizetype>{0, 2}));
}

TEST(Observers, SeeAJobFromTheFirstMessageToTheLast)
{
    const ScriptedTools tools({{0, 1, u"One"_s}, {1, 2, u"Two"_s}});
    ModelFixture fixture({.tools = tools.location()});
    fixture.prepareJob(tools.source());
    const Watched<QString> status([&] { return fixture->statusText(); });
    fixture.runJob();
    EXPECT_THAT(status.values(),
                testing::ElementsAre(u"Found 2 chapters."_s, u"Starting…"_s, u"Encoding 1 of 2: One"_s,
                                     u"Encoding 2 of 2: Two"_s, u"Encoded 2 tracks to out."_s));
}

} // namespace tonearm
