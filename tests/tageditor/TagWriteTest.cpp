// SPDX-License-Identifier: GPL-3.0-or-later
#include "tageditor/TagWrite.h"

#include "helpers/Printing.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tonearm {

using namespace Qt::StringLiterals;
using Field = EditableTagField;

namespace {

const QUrl original = QUrl::fromLocalFile(u"/music/a.flac"_s);
const QUrl chosen = QUrl::fromLocalFile(u"/pictures/a.jpg"_s);

EditableAudioFile fileWith(const AudioFileTags &tags)
{
    return {.url = original, .tags = tags, .unreadableReason = {}, .modificationDate = {}};
}

AudioFileTags storedTags()
{
    AudioFileTags tags;
    tags.trackPosition = u"3"_s;
    tags.artist = u"Anna"_s;
    tags.title = u"Song"_s;
    tags.year = u"1999"_s;
    return tags;
}

QStringList metadataFor(const AudioFileTags &tags, const QMap<Field, QString> &edits)
{
    TagChangeSet changes;
    changes.fieldEdits.insert(original, edits);
    return tagWrite(fileWith(tags), changes).metadata;
}

// The plan's pairs, after a look at what stands in front of each.
QStringList pairsFor(const AudioFileTags &tags, const QMap<Field, QString> &edits)
{
    const QStringList metadata = metadataFor(tags, edits);
    QStringList pairs;
    for (qsizetype index = 0; index < metadata.size(); index += 2) {
        EXPECT_EQ(metadata[index], u"-metadata"_s);
        pairs.append(metadata.value(index + 1));
    }
    return pairs;
}

ArtworkWrite artworkFor(const ArtworkIntent &intent, bool hasPicture)
{
    AudioFileTags tags;
    tags.hasAttachedPicture = hasPicture;
    TagChangeSet changes;
    changes.artworkIntents.insert(original, intent);
    return tagWrite(fileWith(tags), changes).artwork;
}

} // namespace

TEST(TagWrite, WritesEachFieldUnderItsKeysInOrder)
{
    EXPECT_EQ(metadataFor({}, {{Field::discNumber, u"2"_s},
                               {Field::genre, u"Folk"_s},
                               {Field::year, u"1999"_s},
                               {Field::title, u"Song"_s},
                               {Field::album, u"Songs"_s},
                               {Field::artist, u"Anna"_s},
                               {Field::trackPosition, u"3"_s}}),
              (QStringList{u"-metadata"_s, u"track=3"_s, u"-metadata"_s, u"artist=Anna"_s, u"-metadata"_s,
                           u"album_artist=Anna"_s, u"-metadata"_s, u"album=Songs"_s, u"-metadata"_s,
                           u"title=Song"_s, u"-metadata"_s, u"date=1999"_s, u"-metadata"_s, u"genre=Folk"_s,
                           u"-metadata"_s, u"disc=2"_s}));
}

TEST(TagWrite, CleansWhatWasTyped)
{
    EXPECT_EQ(pairsFor({}, {{Field::title, u" \n Song=a \t"_s}}), QStringList{u"title=Song=a"_s});
    EXPECT_EQ(pairsFor({}, {{Field::trackPosition, u"03"_s}}), QStringList{u"track=3"_s});
    EXPECT_EQ(pairsFor({}, {{Field::trackPosition, u"3/12"_s}}), QStringList{u"track=312"_s});
    EXPECT_EQ(pairsFor({}, {{Field::year, u"May 1969"_s}}), QStringList{u"date=1969"_s});
    EXPECT_EQ(pairsFor({}, {{Field::year, u"12345"_s}}), QStringList{u"date=1234"_s});
    EXPECT_EQ(pairsFor({}, {{Field::discNumber, u"disc 2"_s}}), QStringList{u"disc=2"_s});
}

TEST(TagWrite, HoldsNoNullThatWouldCutATag)
{
    const QString typed = u"So"_s + QChar::Null + u"ng"_s;
    EXPECT_EQ(pairsFor({}, {{Field::title, typed}}), QStringList{u"title=Song"_s});
    EXPECT_EQ(pairsFor(storedTags(), {{Field::title, typed}}), QStringList());
}

TEST(TagWrite, LeavesOutAnEditThatCleansToTheCurrentValue)
{
    const TagChangeSet changes{.fieldEdits = {{original,
                                               {{Field::title, u" Song\n"_s},
                                                {Field::trackPosition, u"03"_s},
                                                {Field::year, u"1999-05-01"_s},
                                                {Field::genre, u"  "_s},
                                                {Field::discNumber, u"0"_s}}}},
                               .artworkIntents = {},
                               .optimizing = {}};
    const TagWrite write = tagWrite(fileWith(storedTags()), changes);
    EXPECT_EQ(write, TagWrite());
    EXPECT_TRUE(write.isEmpty());
}

TEST(TagWrite, ClearsATagWithNothingBehindTheEqualsSign)
{
    EXPECT_EQ(pairsFor(storedTags(), {{Field::artist, u" "_s}}),
              (QStringList{u"artist="_s, u"album_artist="_s}));
    EXPECT_EQ(pairsFor(storedTags(), {{Field::year, u"May 89"_s}}), QStringList{u"date="_s});
}

TEST(TagWrite, KeepsTheTotalBesideANewPosition)
{
    AudioFileTags tags = storedTags();
    tags.trackTotal = u"12"_s;
    tags.discTotal = u"2"_s;
    EXPECT_EQ(pairsFor(tags, {{Field::trackPosition, u"5"_s}, {Field::discNumber, u"1"_s}}),
              (QStringList{u"track=5/12"_s, u"disc=1/2"_s}));
    EXPECT_EQ(pairsFor(tags, {{Field::trackPosition, u""_s}}), QStringList{u"track="_s});
}

TEST(TagWrite, LooksAtItsOwnFilesEditsOnly)
{
    const QUrl other = QUrl::fromLocalFile(u"/music/b.flac"_s);
    const TagChangeSet changes{.fieldEdits = {{other, {{Field::title, u"x"_s}}}},
                               .artworkIntents = {{other, ArtworkIntent::replace(chosen)}},
                               .optimizing = {original}};
    EXPECT_EQ(tagWrite(fileWith(storedTags()), changes), TagWrite());
}

TEST(TagWrite, FollowsTheIntentForTheArtwork)
{
    EXPECT_EQ(artworkFor(ArtworkIntent::replace(chosen), false), ArtworkWrite::replace(chosen));
    EXPECT_EQ(artworkFor(ArtworkIntent::replace(chosen), true), ArtworkWrite::replace(chosen));
    EXPECT_EQ(artworkFor(ArtworkIntent::untouched(), true), ArtworkWrite::keep());
    EXPECT_EQ(artworkFor(ArtworkIntent::remove(), true), ArtworkWrite::remove());
}

TEST(TagWrite, KeepsTheArtworkIfThereIsNoneToRemove)
{
    EXPECT_EQ(artworkFor(ArtworkIntent::remove(), false), ArtworkWrite::keep());
}

TEST(TagWrite, IsntEmptyWithArtworkToChange)
{
    EXPECT_FALSE((TagWrite{.metadata = {}, .artwork = ArtworkWrite::remove()}).isEmpty());
    EXPECT_FALSE((TagWrite{.metadata = {u"-metadata"_s, u"title="_s}, .artwork = {}}).isEmpty());
}

} // namespace tonearm
