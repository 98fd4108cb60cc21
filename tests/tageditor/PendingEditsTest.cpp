// SPDX-License-Identifier: GPL-3.0-or-later
#include "tageditor/PendingEdits.h"
#include "helpers/EditorFixture.h"
#include "helpers/Printing.h"
#include "tageditor/Writes.h"

#include <gtest/gtest.h>

namespace tonearm {

using namespace Qt::StringLiterals;
using test::editing;
using test::rowOf;
using test::tagsWith;
using Field = EditableTagField;

namespace {

constexpr qint64 budget = 1000;

ArtworkFingerprint pictureOfBytes(qint64 byteCount)
{
    ArtworkFingerprint fingerprint;
    fingerprint.digest = u"d"_s;
    fingerprint.byteCount = byteCount;
    return fingerprint;
}

EditableAudioFile pictured()
{
    AudioFileTags tags;
    tags.hasAttachedPicture = true;
    return rowOf(u"a.flac"_s, tags);
}

bool isDirtyAfter(Field field, const QString &stored, const QString &typed)
{
    const EditableAudioFile row = rowOf(u"a.flac"_s, tagsWith(field, stored));
    return isDirty(row, editing(row.url, {{field, typed}}), std::nullopt, budget);
}

bool isDirtyFor(const EditableAudioFile &row, const ArtworkIntent &intent)
{
    return isDirty(row, editing(row.url, {}, intent), pictureOfBytes(2 * budget), budget);
}

bool isDirtyWhenOptimized(const std::optional<ArtworkFingerprint> &fingerprint)
{
    const EditableAudioFile row = pictured();
    return isDirty(row, {.fieldEdits = {}, .artworkIntents = {}, .optimizing = {row.url}}, fingerprint,
                   budget);
}

} // namespace

TEST(EditableTagFields, HaveTheirLabels)
{
    QStringList labels;
    for (const Field field : allEditableTagFields)
        labels.append(label(field));
    EXPECT_EQ(labels, QStringList({u"Track Position"_s, u"Artist"_s, u"Album Title"_s, u"Song Title"_s,
                                   u"Year"_s, u"Genre"_s, u"Disc Number"_s}));
}

TEST(NormalForm, TrimsTexts)
{
    for (const Field field : {Field::artist, Field::album, Field::title, Field::genre})
        EXPECT_EQ(normalForm(field, u" \t\nOne  Two\n "_s), u"One  Two"_s) << label(field).toStdString();
}

TEST(NormalForm, IsAllDigitsOfANumber)
{
    const QMap<QString, QString> forms = {{u"03"_s, u"3"_s}, {u"3/12"_s, u"312"_s}, {u"0"_s, u""_s},
                                          {u""_s, u""_s},    {u" 7 "_s, u"7"_s},    {u"abc"_s, u""_s}};
    for (auto form = forms.constBegin(); form != forms.constEnd(); ++form)
        for (const Field field : {Field::trackPosition, Field::discNumber})
            EXPECT_EQ(normalForm(field, form.key()), form.value()) << form.key().toStdString();
}

TEST(NormalForm, IsTheFirstFourDigitsOfAYear)
{
    const QMap<QString, QString> forms = {{u"2023-05-01"_s, u"2023"_s},
                                          {u"12345"_s, u"1234"_s},
                                          {u"May 89"_s, u""_s},
                                          {u"May 1989"_s, u"1989"_s}};
    for (auto form = forms.constBegin(); form != forms.constEnd(); ++form)
        EXPECT_EQ(normalForm(Field::year, form.key()), form.value()) << form.key().toStdString();
}

TEST(Dirtiness, IsThatOfADifferentText)
{
    EXPECT_TRUE(isDirtyAfter(Field::artist, u"A"_s, u"B"_s));
    EXPECT_TRUE(isDirtyAfter(Field::artist, u"A"_s, u"a"_s));
    EXPECT_TRUE(isDirtyAfter(Field::artist, u"A"_s, u""_s));
    EXPECT_TRUE(isDirtyAfter(Field::year, u"1999"_s, u"May 89"_s));
}

TEST(Dirtiness, IsNotThatOfATextThatComesToTheSame)
{
    EXPECT_FALSE(isDirtyAfter(Field::artist, u"A"_s, u"A "_s));
    EXPECT_FALSE(isDirtyAfter(Field::trackPosition, u"3"_s, u"03"_s));
    EXPECT_FALSE(isDirtyAfter(Field::year, u"2023"_s, u"2023-05-01"_s));
    EXPECT_FALSE(isDirtyAfter(Field::genre, u""_s, u"  "_s));
    EXPECT_FALSE(isDirtyAfter(Field::discNumber, u""_s, u"0"_s));
}

TEST(Dirtiness, DoesNotNormalizeWhatIsStored)
{
    const EditableAudioFile row = rowOf(u"a.flac"_s, tagsWith(Field::trackPosition, u"01"_s));
    EXPECT_FALSE(isDirty(row, {}, std::nullopt, budget));
    EXPECT_TRUE(isDirtyAfter(Field::trackPosition, u"01"_s, u"01"_s));
    EXPECT_EQ(tagWrite(row, editing(row.url, {{Field::trackPosition, u"01"_s}})).metadata.last(),
              u"track=1"_s);
}

TEST(Dirtiness, LooksAtEveryField)
{
    for (const Field field : allEditableTagFields) {
        EXPECT_TRUE(isDirtyAfter(field, u""_s, u"2001"_s)) << label(field).toStdString();
        EXPECT_FALSE(isDirtyAfter(field, u"2001"_s, u"2001"_s)) << label(field).toStdString();
    }
}

TEST(Dirtiness, IsNeverThatOfAnUnreadableRow)
{
    EditableAudioFile row = pictured();
    row.unreadableReason = u"Tags couldn't be read."_s;
    const TagChangeSet changes = editing(row.url, {{Field::title, u"New"_s}}, ArtworkIntent::remove());
    EXPECT_FALSE(isDirty(row, changes, pictureOfBytes(2 * budget), budget));
}

TEST(Dirtiness, IsThatOfAnotherPicture)
{
    const ArtworkIntent replacement = ArtworkIntent::replace(QUrl(u"file:///a.jpg"_s));
    EXPECT_TRUE(isDirtyFor(pictured(), replacement));
    EXPECT_TRUE(isDirtyFor(rowOf(u"a.flac"_s), replacement));
}

TEST(Dirtiness, IsThatOfARemovedPictureOnlyIfThereIsOne)
{
    EXPECT_TRUE(isDirtyFor(pictured(), ArtworkIntent::remove()));
    EXPECT_FALSE(isDirtyFor(rowOf(u"a.flac"_s), ArtworkIntent::remove()));
}

TEST(Dirtiness, IsThatOfAPictureToBeShrunkOnlyIfItIsKnownToBeOverTheBudget)
{
    EXPECT_TRUE(isDirtyWhenOptimized(pictureOfBytes(budget + 1)));
    EXPECT_FALSE(isDirtyWhenOptimized(pictureOfBytes(budget)));
    EXPECT_FALSE(isDirtyWhenOptimized(std::nullopt));
    EXPECT_FALSE(isDirtyFor(pictured(), ArtworkIntent::untouched()));
}

TEST(TableText, IsTheNormalFormOfAnEditOrElseWhatIsStored)
{
    const EditableAudioFile row = rowOf(u"a.flac"_s, tagsWith(Field::trackPosition, u"01"_s));
    EXPECT_EQ(tableText(row, Field::trackPosition, {}), u"01"_s);
    const TagChangeSet changes =
        editing(row.url, {{Field::trackPosition, u"3/12"_s}, {Field::title, u" New "_s}});
    EXPECT_EQ(tableText(row, Field::trackPosition, changes), u"312"_s);
    EXPECT_EQ(tableText(row, Field::title, changes), u"New"_s);
    EXPECT_EQ(pendingValue(row, Field::title, changes), u" New "_s);
}

TEST(EffectiveTags, AreThoseThatASaveWouldLeave)
{
    const EditableAudioFile row = rowOf(u"a.flac"_s, tagsWith(Field::artist, u"A"_s));
    for (const Field field : allEditableTagFields) {
        AudioFileTags expected = tagsWith(field, u"2001"_s);
        if (field != Field::artist)
            expected.artist = u"A"_s;
        EXPECT_EQ(effectiveTags(row, editing(row.url, {{field, u" 2001"_s}})), expected);
    }
}

TEST(EffectiveTags, FollowTheIntentForThePicture)
{
    const auto hasPicture = [](const EditableAudioFile &row, const ArtworkIntent &intent) {
        return effectiveTags(row, editing(row.url, {}, intent)).hasAttachedPicture;
    };
    const EditableAudioFile bare = rowOf(u"b.flac"_s);
    EXPECT_TRUE(hasPicture(bare, ArtworkIntent::replace(QUrl(u"file:///a.jpg"_s))));
    EXPECT_FALSE(hasPicture(pictured(), ArtworkIntent::remove()));
    EXPECT_TRUE(hasPicture(pictured(), ArtworkIntent::untouched()));
    EXPECT_FALSE(hasPicture(bare, ArtworkIntent::untouched()));
}

} // namespace tonearm
