// SPDX-License-Identifier: GPL-3.0-or-later
// For how long work on ten thousand rows keeps the event loop from turning. The figures go into the report
// of the run; nothing is asserted on them, since a machine may be busy with other things.
#include "app/screens/elements/Bind.h"
#include "editortable/ShownTable.h"
#include "helpers/Heartbeat.h"
#include "helpers/Widgets.h"

#include <gtest/gtest.h>

#include <iostream>

namespace tonearm {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using namespace test;
using Field = EditableTagField;
using Key = RowComparator::Key;

namespace {

constexpr int manyFiles = 10000;

// Puts down what a flow came to, and starts afresh for the next.
void keep(Heartbeat &heart, const std::string &flow)
{
    const Heartbeat::Gap longest = heart.longest();
    const int late = heart.longerThan(16ms);
    testing::Test::RecordProperty(flow + "_longest_gap_us", std::to_string(longest.elapsed.count()));
    testing::Test::RecordProperty(flow + "_longest_work_us", std::to_string(longest.worked.count()));
    testing::Test::RecordProperty(flow + "_gaps_over_16_ms", std::to_string(late));
    std::cout << flow << ": longest gap " << longest.elapsed.count() << " us, longest work "
              << longest.worked.count() << " us, gaps over 16 ms: " << late << '\n';
    heart.reset();
}

// What a window around the table reads of the model.
void bindWindow(QObject *window, const MetadataEditorModel &model)
{
    for (const Field field : allEditableTagFields) {
        bind(
            window, [&model, field] { return model.commonValue(field); }, [](const CommonValue &) {});
        bind(
            window, [&model, field] { return model.placeholder(field); }, [](const QString &) {});
        bind(
            window, [&model, field] { return model.overwrittenFields().contains(field); }, [](bool) {});
    }
    bind(
        window, [&model] { return model.overwriteWarning(); }, [](const std::optional<QString> &) {});
    bind(
        window, [&model] { return model.artworkState(); }, [](const EditorArtworkState &) {});
    bind(
        window, [&model] { return model.artworkCaption(); }, [](const std::optional<QString> &) {});
    bind(
        window, [&model] { return model.canRemoveArtwork() || model.isOptimizing(); }, [](bool) {});
    bind(
        window, [&model] { return model.canSave(); }, [](bool) {});
    bind(
        window,
        [&model] {
            const QList<EditableAudioFile> &files = model.files.value();
            return std::count_if(files.begin(), files.end(),
                                 [&model](const EditableAudioFile &row) { return model.isDirty(row); });
        },
        [](qsizetype) {});
}

struct EditorHeartbeat : testing::Test
{
    EditorHeartbeat() { bindWindow(&shown.table(), shown.model()); }

    void select(const std::function<bool(int)> &isWanted)
    {
        QSet<QUrl> wanted;
        for (int row = 0; row < rows.size(); ++row)
            if (isWanted(row))
                wanted.insert(rows[row].url);
        shown.model().setSelection(wanted);
        heart.run(1, [](int) {});
        heart.reset();
    }

    void typeArtist(const std::string &flow)
    {
        heart.run(20, [this](int step) { shown.model().setValue(QString(step + 1, u'x'), Field::artist); });
        EXPECT_EQ(shown.model().commonValue(Field::artist), CommonValue::value(QString(20, u'x')));
        keep(heart, flow);
    }

    QList<EditableAudioFile> rows = manyRows(manyFiles);
    ShownTable shown{rows};
    Heartbeat heart;
};

} // namespace

TEST_F(EditorHeartbeat, OfTypingForHalfOfTheRows)
{
    select([](int row) { return row < manyFiles / 2; });
    typeArtist("type_for_5000_in_one_range");
}

TEST_F(EditorHeartbeat, OfTypingForEverySecondRow)
{
    select([](int row) { return row % 2 == 0; });
    typeArtist("type_for_5000_with_gaps");
    heart.run(5, [this](int step) { shown.clickRow(2 * step + 1, Qt::ControlModifier); });
    EXPECT_EQ(shown.model().selectedFiles().size(), manyFiles / 2 + 5);
    keep(heart, "ctrl_click_beside_5000_with_gaps");
    heart.run(5, [this](int step) { shown.clickRow(step); });
    EXPECT_EQ(shown.model().selectedFiles().size(), 1);
    keep(heart, "click_with_5000_with_gaps");
}

TEST_F(EditorHeartbeat, OfTypingForOneRow)
{
    typeArtist("type_for_10000");
    select([](int row) { return row == manyFiles - 1; });
    typeArtist("type_for_1_after_10000");
}

TEST_F(EditorHeartbeat, OfSelecting)
{
    shown.list().setFocus();
    heart.run(6, [this](int step) {
        if (step % 2 == 0)
            press(step % 4 == 0 ? Qt::Key_End : Qt::Key_Home);
        else
            press(Qt::Key_A, Qt::ControlModifier);
    });
    EXPECT_EQ(shown.model().selectedFiles().size(), manyFiles);
    keep(heart, "select_all_and_one_of_10000");
    press(Qt::Key_Home);
    heart.run(100, [](int) { press(Qt::Key_Down, Qt::ShiftModifier); });
    EXPECT_EQ(shown.model().selectedFiles().size(), 101);
    keep(heart, "extend_the_selection");
}

TEST_F(EditorHeartbeat, OfSorting)
{
    select([](int row) { return row % 2 == 0; });
    heart.run(6, [this](int) { shown.clickTitle(0); });
    EXPECT_EQ(shown.names().first(), rows.last().url.fileName());
    keep(heart, "sort_10000_by_name");
    heart.run(6, [this](int) { shown.clickTitle(1); });
    keep(heart, "sort_10000_by_position");
}

TEST_F(EditorHeartbeat, OfScrolling)
{
    select([](int row) { return row % 2 == 0; });
    heart.run(100, [this](int) { turnWheel(*shown.list().viewport(), 3); });
    EXPECT_GT(shown.list().indexAt({5, 5}).row(), 100);
    keep(heart, "scroll_10000");
}

TEST_F(EditorHeartbeat, OfALoad)
{
    QList<EditableAudioFile> placeholders = rows;
    for (EditableAudioFile &row : placeholders)
        row.tags = {};
    shown.model().reset();
    heart.reset();
    heart.run(4, [&](int step) {
        if (step == 0)
            shown.model().isLoading = true;
        else if (step == 1)
            shown.model().files = placeholders;
        else if (step == 2)
            shown.model().setSortOrder(defaultRowOrder());
        else
            shown.fixture().show(rows);
    });
    EXPECT_EQ(shown.highlightedNames().size(), manyFiles);
    keep(heart, "load_10000");
}

} // namespace tonearm
