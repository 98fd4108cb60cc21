// SPDX-License-Identifier: GPL-3.0-or-later
#include "tageditor/SharedTexts.h"

#include "helpers/EditorFixture.h"
#include "helpers/Printing.h"

#include <gtest/gtest.h>

namespace tonearm {

using namespace Qt::StringLiterals;
using test::rowOf;

namespace {

// A text of its own, though it may be like others.
QString copy(const char *text)
{
    return QString::fromLatin1(text);
}

EditableAudioFile song(const QString &name, const char *artist, const char *title)
{
    AudioFileTags tags;
    tags.artist = copy(artist);
    tags.title = copy(title);
    return rowOf(name, tags);
}

} // namespace

TEST(SharedTexts, AreOneInMemory)
{
    QList<EditableAudioFile> rows = {song(u"a"_s, "Nina", "Nina"), song(u"b"_s, "Nina", "Blue")};
    ASSERT_NE(rows[0].tags.artist.constData(), rows[1].tags.artist.constData());
    shareTexts(rows);
    EXPECT_EQ(rows[0].tags.artist.constData(), rows[1].tags.artist.constData());
    EXPECT_EQ(rows[0].tags.artist.constData(), rows[0].tags.title.constData());
}

TEST(SharedTexts, LeaveTheRowsAsTheyWere)
{
    QList<EditableAudioFile> rows = {song(u"a"_s, "Nina", "Blue"), song(u"b"_s, "nina", ""),
                                     song(u"c"_s, "", "Nina")};
    rows[1].tags.trackPosition = u"1"_s;
    rows[2].tags.discNumber = u"1"_s;
    const QList<EditableAudioFile> before = rows;
    shareTexts(rows);
    EXPECT_EQ(rows, before);
}

} // namespace tonearm
