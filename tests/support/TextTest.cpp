// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/Text.h"

#include "helpers/Printing.h"

#include <gtest/gtest.h>

namespace tonearm {

using namespace Qt::StringLiterals;

TEST(Text, CountsWhatAPersonSeesAsOneCharacter)
{
    EXPECT_EQ(characterCount(u"e\u0301"), 1);
    EXPECT_EQ(characterCount(u"👨‍👩‍👧"), 1);
    EXPECT_EQ(characterCount(u"🇩🇪🇯🇵"), 2);
    EXPECT_EQ(characterCount(u"\r\n"), 1);
    EXPECT_EQ(characterCount(u""), 0);
}

TEST(Text, CutsBetweenCharactersOnly)
{
    EXPECT_EQ(firstCharacters(u"ae\u0301b"_s, 2), u"ae\u0301"_s);
    EXPECT_EQ(firstCharacters(u"👨‍👩‍👧x"_s, 1), u"👨‍👩‍👧"_s);
    EXPECT_EQ(firstCharacters(u"ab"_s, 5), u"ab"_s);
    EXPECT_EQ(firstCharacters(u"ab"_s, 0), u""_s);
}

TEST(Text, TrimsWhiteSpaceAndLineEnds)
{
    EXPECT_EQ(trimmed(u" \t\r\n\u00A0\u2028 a b \u3000\n"_s), u"a b"_s);
    EXPECT_EQ(trimmed(u" \n "_s), u""_s);
}

TEST(Text, TrimsBlanksButNotLineEnds)
{
    EXPECT_EQ(trimmedBlanks(u" \t a\n "_s), u"a\n"_s);
    EXPECT_EQ(trimmedBlanks(u"\u3000a\u00A0"_s), u"a"_s);
}

TEST(Text, KnowsNumbersOfEveryScript)
{
    EXPECT_TRUE(isNumeric(u"7"));
    EXPECT_TRUE(isNumeric(u"٣"));
    EXPECT_TRUE(isNumeric(u"½"));
    EXPECT_TRUE(isNumeric(u"𝟗"));
    EXPECT_FALSE(isNumeric(u"x"));
    EXPECT_FALSE(isNumeric(u""));
}

TEST(Text, FoldsCaseAndAccents)
{
    EXPECT_EQ(folded(u"Björk"_s), folded(u"BJO\u0308RK"_s));
    EXPECT_EQ(folded(u"É"_s), u"e"_s);
    EXPECT_EQ(folded(u"Ё"_s), u"е"_s);
    EXPECT_EQ(folded(u"Ά"_s), u"α"_s);
    EXPECT_EQ(folded(u"ệ"_s), u"e"_s);
    EXPECT_NE(folded(u"Bjork"_s), folded(u"Bjork!"_s));
}

TEST(Text, FoldsNoMarkThatTellsWordsApart)
{
    EXPECT_NE(folded(u"दिल"_s), folded(u"दाल"_s));
    EXPECT_NE(folded(u"か"_s), folded(u"が"_s));
    EXPECT_EQ(folded(u"が"_s), folded(u"か\u3099"_s));
    EXPECT_EQ(folded(u"é か\u3099 é"_s), u"e か\u3099 e"_s);
}

TEST(Text, CountsInWords)
{
    EXPECT_EQ(counted(0, u"track"_s), u"0 tracks"_s);
    EXPECT_EQ(counted(1, u"track"_s), u"1 track"_s);
    EXPECT_EQ(counted(12, u"release"_s), u"12 releases"_s);
}

TEST(Text, DropsEveryNull)
{
    EXPECT_EQ(withoutNull(QString::fromUtf16(u"\0a\0\0b\0", 6)), u"ab"_s);
    EXPECT_EQ(withoutNull(u"ab"_s), u"ab"_s);
}

} // namespace tonearm
