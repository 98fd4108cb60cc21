// SPDX-License-Identifier: GPL-3.0-or-later
#include "encoding/FileNaming.h"

#include "encoding/RandomText.h"
#include "helpers/Printing.h"
#include "support/FileName.h"
#include "support/Text.h"

#include <gtest/gtest.h>

#include <utility>

namespace tonearm {

using namespace Qt::StringLiterals;
using test::RandomText;

namespace {

constexpr int generatedTexts = 3000;

const QString forbiddenInTitles =
    u".`'\u2019\u2018\u02BC\u00B4\"\u201C\u201D \\/:;^%$#!~,?<>|*\n\v\f\r\u0085\u2028\u2029"_s;

// The part of a file's name that the title became.
QString titlePart(const QString &title)
{
    const QString name = outputFilename(title, 3);
    return name.sliced(3).chopped(5);
}

} // namespace

TEST(OutputFilename, DropsApostrophesAndKeepsBrackets)
{
    EXPECT_EQ(outputFilename(u"Don't Stop (Live, 1999)"_s, 3), u"03-Dont-Stop-(Live-1999).flac"_s);
}

TEST(OutputFilename, NamesTheTrackWhenTheTitleLeavesNothing)
{
    EXPECT_EQ(outputFilename(u"..."_s, 7), u"07-Track-07.flac"_s);
    EXPECT_EQ(outputFilename(u""_s, 1), u"01-Track-01.flac"_s);
    EXPECT_EQ(outputFilename(u" \n"_s, 12), u"12-Track-12.flac"_s);
    EXPECT_EQ(outputFilename(u"-?-"_s, 123), u"123-Track-123.flac"_s);
}

TEST(OutputFilename, HasAtLeastTwoDigits)
{
    EXPECT_EQ(outputFilename(u"A"_s, 9), u"09-A.flac"_s);
    EXPECT_EQ(outputFilename(u"A"_s, 100), u"100-A.flac"_s);
}

TEST(OutputFilename, ReplacesSeparatorsByOneHyphen)
{
    EXPECT_EQ(titlePart(u"AC/DC: Live!"_s), u"AC-DC-Live"_s);
    EXPECT_EQ(titlePart(u"a  -  b"_s), u"a-b"_s);
    EXPECT_EQ(titlePart(u"a\r\nb\u2028c\u0085d"_s), u"a-b-c-d"_s);
    EXPECT_EQ(titlePart(u"--a--"_s), u"a"_s);
}

TEST(OutputFilename, DropsTenCharacters)
{
    for (const QChar dropped : u".`'\u2019\u2018\u02BC\u00B4\"\u201C\u201D"_s)
        EXPECT_EQ(titlePart(u"a"_s + dropped + u"b"_s), u"ab"_s) << QString(dropped).toStdString();
}

TEST(OutputFilename, ReplacesSeventeenCharacters)
{
    const QString replaced = u" \\/:;^%$#!~,?<>|*"_s;
    ASSERT_EQ(replaced.size(), 17);
    for (const QChar character : replaced)
        EXPECT_EQ(titlePart(u"a"_s + character + u"b"_s), u"a-b"_s) << QString(character).toStdString();
}

TEST(OutputFilename, KeepsEverythingElse)
{
    EXPECT_EQ(titlePart(u"Ænima_&_Größe=[(日本語)]+@{}"_s), u"Ænima_&_Größe=[(日本語)]+@{}"_s);
    EXPECT_EQ(titlePart(u"👨‍👩‍👧🇩🇪"_s), u"👨‍👩‍👧🇩🇪"_s);
    EXPECT_EQ(titlePart(u"e\u0301"_s), u"e\u0301"_s);
}

TEST(OutputFilename, TakesACanonicalEquivalentForTheCharacterItself)
{
    EXPECT_EQ(titlePart(u"a\u037Eb"_s), u"a-b"_s) << "the Greek question mark is a semicolon";
    EXPECT_EQ(titlePart(u"a\u1FEFb"_s), u"ab"_s) << "the Greek varia is a backtick";
}

TEST(OutputFilename, NeverHoldsASlashNotEvenInsideACharacter)
{
    EXPECT_EQ(titlePart(u"a/\u0301b"_s), u"a-b"_s);
    EXPECT_EQ(titlePart(u"a\u0600/b"_s), u"a-b"_s);
    EXPECT_EQ(titlePart(u"a"_s + QChar(QChar::Null) + u"b"_s), u"a-b"_s);
}

TEST(OutputFilename, CutsATitleToAHundredAndTwentyCharacters)
{
    EXPECT_EQ(titlePart(QString(130, u'x')), QString(120, u'x'));
    EXPECT_EQ(titlePart(u"e\u0301"_s.repeated(121)), u"e\u0301"_s.repeated(82))
        << "a letter with its mark takes three bytes";
}

TEST(OutputFilename, TrimsTheHyphenOnWhichItCuts)
{
    const QString title = QString(119, u'x') + u'-' + QString(10, u'y');
    ASSERT_EQ(title.size(), 130);
    EXPECT_EQ(titlePart(title), QString(119, u'x'));
}

TEST(OutputFilename, FitsIntoTheFileSystemsBytes)
{
    // 120 characters of three bytes; "03-" and ".flac" leave room for 247 bytes.
    EXPECT_EQ(outputFilename(QString(130, u'語'), 3), u"03-"_s + QString(82, u'語') + u".flac"_s);
    EXPECT_EQ(outputFilename(QString(81, u'語') + u"ab-語"_s, 3),
              u"03-"_s + QString(81, u'語') + u"ab.flac"_s)
        << "the hyphen on which the bytes end goes too";
}

TEST(OutputFilename, FallsBackWhenNotOneCharacterFits)
{
    EXPECT_EQ(outputFilename(u'a' + QString(200, u'\u0301'), 3), u"03-Track-03.flac"_s);
}

TEST(OutputFilename, HoldsItsPromisesForAnyTitle)
{
    RandomText random(20260105);
    for (int round = 0; round < generatedTexts; ++round) {
        const QString title = random.next();
        SCOPED_TRACE(title.toStdString());
        const QString name = outputFilename(title, 3);
        ASSERT_TRUE(name.startsWith(u"03-"_s) && name.endsWith(u".flac"_s));
        ASSERT_LE(name.toUtf8().size(), maximumNameBytes);
        const QString part = titlePart(title);
        ASSERT_FALSE(part.isEmpty());
        ASSERT_FALSE(part.startsWith(u'-') || part.endsWith(u'-') || part.contains(u"--"_s));
        ASSERT_LE(characterCount(part), 120);
        for (const QStringView character : characters(part))
            ASSERT_FALSE(character.size() == 1 && forbiddenInTitles.contains(character.front()));
        ASSERT_FALSE(name.contains(u'/'));
    }
}

TEST(OutputFilename, LeavesACleanTitleAsItIs)
{
    RandomText random(5150);
    int compared = 0;
    for (int round = 0; round < generatedTexts; ++round) {
        const QString once = titlePart(random.next());
        // A tab is kept inside a title and trimmed from its ends, and where hyphens went one may end it.
        const bool isSettled = trimmed(once) == once;
        ASSERT_EQ(isSettled ? titlePart(once) : once, once);
        compared += isSettled ? 1 : 0;
    }
    EXPECT_GT(compared, generatedTexts / 2);
}

TEST(CleanedFolderName, GivesNothingForATextOfFullStops)
{
    EXPECT_EQ(cleanedFolderName(u"..."_s), std::nullopt);
    EXPECT_EQ(cleanedFolderName(u""_s), std::nullopt);
    EXPECT_EQ(cleanedFolderName(u" \t\n"_s), std::nullopt);
    EXPECT_EQ(cleanedFolderName(u"-.-"_s), std::nullopt);
}

TEST(CleanedFolderName, StripsWhatHidesAFolderOrEndsItBadly)
{
    EXPECT_EQ(cleanedFolderName(u"-Rock-"_s), u"Rock"_s);
    EXPECT_EQ(cleanedFolderName(u" Foo. "_s), u"Foo"_s);
    EXPECT_EQ(cleanedFolderName(u".-. Foo -. "_s), u"Foo"_s);
    EXPECT_EQ(cleanedFolderName(u"\u3000Foo\u00A0"_s), u"Foo"_s);
}

TEST(CleanedFolderName, ReplacesNineCharacters)
{
    EXPECT_EQ(cleanedFolderName(u"A/B"_s), u"A-B"_s);
    const QString replaced = u"/\\:*?\"<>|"_s;
    ASSERT_EQ(replaced.size(), 9);
    for (const QChar character : replaced)
        EXPECT_EQ(cleanedFolderName(u"a"_s + character + u"b"_s), u"a-b"_s)
            << QString(character).toStdString();
}

TEST(CleanedFolderName, JoinsHyphensButKeepsSpaces)
{
    EXPECT_EQ(cleanedFolderName(u"a //?b  c"_s), u"a -b  c"_s);
}

TEST(CleanedFolderName, DropsLineBreaksAndControlCharacters)
{
    EXPECT_EQ(cleanedFolderName(u"a\nb\r\nc\vd\fe\u0085f\u2028g\u2029h"_s), u"abcdefgh"_s);
    EXPECT_EQ(cleanedFolderName(u"a\tb\u0001c\u001Fd"_s + QChar(QChar::Null)), u"abcd"_s);
}

TEST(CleanedFolderName, KeepsEverythingElse)
{
    EXPECT_EQ(cleanedFolderName(u"Mr. Größe's 50% (日本) #1, \u007F!"_s),
              u"Mr. Größe's 50% (日本) #1, \u007F!"_s);
}

TEST(CleanedFolderName, CutsToAHundredCharactersAndTrimsBlanks)
{
    EXPECT_EQ(cleanedFolderName(QString(130, u'x')), QString(100, u'x'));
    EXPECT_EQ(cleanedFolderName(QString(98, u'x') + u" \u00A0yyy"_s), QString(98, u'x'));
    EXPECT_EQ(cleanedFolderName(QString(99, u'x') + u".yyy"_s), QString(99, u'x') + u'.')
        << "a full stop on which it cuts stays";
}

TEST(CleanedFolderName, FitsIntoTheFileSystemsBytes)
{
    EXPECT_EQ(cleanedFolderName(QString(100, u'語')), QString(85, u'語'));
    EXPECT_EQ(cleanedFolderName(QString(84, u'語') + u"  語語"_s), QString(84, u'語'));
    EXPECT_EQ(cleanedFolderName(u'a' + QString(200, u'\u0301')), std::nullopt);
}

TEST(CleanedFolderName, HoldsItsPromisesForAnyText)
{
    RandomText random(19991231);
    for (int round = 0; round < generatedTexts; ++round) {
        const QString text = random.next();
        SCOPED_TRACE(text.toStdString());
        const QString name = cleanedFolderName(text).value_or(u"none"_s);
        ASSERT_FALSE(name.isEmpty());
        ASSERT_LE(characterCount(name), 100);
        ASSERT_LE(name.toUtf8().size(), maximumNameBytes);
        ASSERT_FALSE(name.contains(u'/') || name.contains(QChar::Null) || name.contains(u"--"_s));
        ASSERT_FALSE(name == u"."_s || name == u".."_s);
        ASSERT_EQ(trimmedBlanks(name), name);
        for (const QStringView character : characters(name))
            ASSERT_FALSE(character.size() == 1 && u"\\:*?\"<>|"_s.contains(character.front()));
    }
}

TEST(CleanedFolderName, NeverPointsAtTheFolderItselfOrAtTheOneAbove)
{
    EXPECT_EQ(cleanedFolderName(u"."_s), std::nullopt);
    EXPECT_EQ(cleanedFolderName(u".."_s), std::nullopt);
    EXPECT_EQ(cleanedFolderName(u". .\u00A0."_s), std::nullopt);
    EXPECT_EQ(cleanedFolderName(u". ..\u00A0."_s), std::nullopt);
}

TEST(CleanedFolderName, LeavesACleanNameAsItIs)
{
    RandomText random(424242);
    int compared = 0;
    for (int round = 0; round < generatedTexts; ++round) {
        const QString once = cleanedFolderName(random.next()).value_or(u"none"_s);
        // A cut, or blanks between the full stops and hyphens at an end, may leave one of these there.
        const bool isSettled = !u".-"_s.contains(once.front()) && !u".-"_s.contains(once.back());
        ASSERT_EQ(isSettled ? cleanedFolderName(once).value_or(QString()) : once, once);
        compared += isSettled ? 1 : 0;
    }
    EXPECT_GT(compared, generatedTexts / 2);
}

} // namespace tonearm
