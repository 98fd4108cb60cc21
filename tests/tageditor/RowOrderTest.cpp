// SPDX-License-Identifier: GPL-3.0-or-later
#include "tageditor/RowOrder.h"
#include "helpers/EditorFixture.h"
#include "helpers/Printing.h"
#include "support/PathText.h"

#include <gtest/gtest.h>

#include <limits>

namespace tonearm {

using namespace Qt::StringLiterals;
using test::rowOf;
using Key = RowComparator::Key;

namespace {

QStringList sortedNames(const QList<EditableAudioFile> &rows,
                        const QList<RowComparator> &order = defaultRowOrder())
{
    QStringList names;
    for (const EditableAudioFile &row : sortedRows(rows, order))
        names.append(lastPathComponent(row.url));
    return names;
}

EditableAudioFile numbered(const QString &name, const QString &disc, const QString &position)
{
    AudioFileTags tags;
    tags.discNumber = disc;
    tags.trackPosition = position;
    return rowOf(name, tags);
}

} // namespace

TEST(RowOrder, ReadsNumbersWithAndWithoutASign)
{
    const QMap<QString, qint64> numbers = {
        {u"7"_s, 7}, {u"01"_s, 1}, {u"+3"_s, 3}, {u"-2"_s, -2}, {u"0"_s, 0}};
    for (auto number = numbers.constBegin(); number != numbers.constEnd(); ++number) {
        const AudioFileTags tags = numbered(u"a"_s, number.key(), number.key()).tags;
        EXPECT_EQ(discSortKey(tags), number.value()) << number.key().toStdString();
        EXPECT_EQ(trackSortKey(tags), number.value()) << number.key().toStdString();
    }
}

TEST(RowOrder, PutsWhatIsNoNumberInFrontAsADiscAndBehindAsATrack)
{
    for (const QString &text : {u""_s, u"abc"_s, u"3/12"_s, u" 3"_s, u"1.5"_s, u"99999999999999999999"_s}) {
        const AudioFileTags tags = numbered(u"a"_s, text, text).tags;
        EXPECT_EQ(discSortKey(tags), 0) << text.toStdString();
        EXPECT_EQ(trackSortKey(tags), std::numeric_limits<qint64>::max()) << text.toStdString();
    }
}

TEST(RowOrder, IsByDiscThenPositionThenName)
{
    EXPECT_EQ(sortedNames({numbered(u"d"_s, u"2"_s, u"1"_s), numbered(u"c"_s, u"1"_s, u"10"_s),
                           numbered(u"b"_s, u"1"_s, u"2"_s), numbered(u"z"_s, u""_s, u"9"_s),
                           numbered(u"a"_s, u"1"_s, u"2"_s)}),
              QStringList({u"z"_s, u"a"_s, u"b"_s, u"c"_s, u"d"_s}));
}

TEST(RowOrder, PutsRowsWithoutANumberLastWithinTheirDisc)
{
    EXPECT_EQ(sortedNames({numbered(u"words"_s, u"1"_s, u"abc"_s), numbered(u"next"_s, u"2"_s, u"1"_s),
                           numbered(u"none"_s, u"1"_s, u""_s), numbered(u"last"_s, u"1"_s, u"99"_s)}),
              QStringList({u"last"_s, u"none"_s, u"words"_s, u"next"_s}));
}

TEST(RowOrder, ComparesNamesPlainly)
{
    EXPECT_EQ(sortedNames({rowOf(u"b"_s), rowOf(u"10"_s), rowOf(u"B"_s), rowOf(u"2"_s)}),
              QStringList({u"10"_s, u"2"_s, u"B"_s, u"b"_s}));
}

TEST(RowOrder, TurnsRoundRuleByRule)
{
    const QList<EditableAudioFile> rows = {numbered(u"a"_s, u"1"_s, u"1"_s), numbered(u"b"_s, u"2"_s, u"1"_s),
                                           numbered(u"c"_s, u"2"_s, u"2"_s)};
    EXPECT_EQ(sortedNames(rows, {{Key::discNumber, Qt::DescendingOrder}, {Key::trackPosition}}),
              QStringList({u"b"_s, u"c"_s, u"a"_s}));
}

TEST(RowOrder, KeepsRowsThatAreAlikeAsTheyAre)
{
    const QList<EditableAudioFile> rows = {numbered(u"b"_s, u"1"_s, u"1"_s),
                                           numbered(u"a"_s, u"1"_s, u"1"_s)};
    for (const Qt::SortOrder order : {Qt::AscendingOrder, Qt::DescendingOrder})
        EXPECT_EQ(sortedNames(rows, {{Key::discNumber, order}}), QStringList({u"b"_s, u"a"_s}));
    EXPECT_EQ(sortedNames(rows, {}), QStringList({u"b"_s, u"a"_s}));
}

TEST(RowOrder, GoesByEachText)
{
    const QMap<Key, EditableTagField> fields = {{Key::artist, EditableTagField::artist},
                                                {Key::album, EditableTagField::album},
                                                {Key::title, EditableTagField::title},
                                                {Key::year, EditableTagField::year},
                                                {Key::genre, EditableTagField::genre}};
    for (auto field = fields.constBegin(); field != fields.constEnd(); ++field)
        EXPECT_EQ(sortedNames({rowOf(u"1"_s, test::tagsWith(field.value(), u"b"_s)),
                               rowOf(u"2"_s, test::tagsWith(field.value(), u"a"_s))},
                              {{field.key()}}),
                  QStringList({u"2"_s, u"1"_s}))
            << label(field.value()).toStdString();
}

TEST(RowOrder, IsLedByAKeyBeforeItsEarlierRules)
{
    EXPECT_EQ(
        rowOrderLedBy(Key::artist, defaultRowOrder()),
        QList<RowComparator>({{Key::artist}, {Key::discNumber}, {Key::trackPosition}, {Key::fileName}}));
    EXPECT_EQ(rowOrderLedBy(Key::fileName, {{Key::artist}, {Key::fileName, Qt::DescendingOrder}}),
              QList<RowComparator>({{Key::fileName}, {Key::artist}}));
    EXPECT_EQ(rowOrderLedBy(Key::year, {}), QList<RowComparator>{{Key::year}});
}

TEST(RowOrder, IsTurnedRoundByTheKeyThatLeadsItAlready)
{
    const QList<RowComparator> turned = rowOrderLedBy(Key::discNumber, defaultRowOrder());
    EXPECT_EQ(turned, QList<RowComparator>(
                          {{Key::discNumber, Qt::DescendingOrder}, {Key::trackPosition}, {Key::fileName}}));
    EXPECT_EQ(rowOrderLedBy(Key::discNumber, turned), defaultRowOrder());
}

} // namespace tonearm
