// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/FileName.h"

#include "helpers/Printing.h"
#include "support/Text.h"

#include <gtest/gtest.h>

#include <random>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

qsizetype byteCount(const QString &text)
{
    return text.toUtf8().size();
}

} // namespace

TEST(FileName, LeavesANameThatFitsAsItIs)
{
    EXPECT_EQ(fittedFileName(u"a"_s, u".flac"_s), u"a.flac"_s);
    EXPECT_EQ(fittedFileName(QString(250, u'a'), u".flac"_s), QString(QString(250, u'a') + u".flac"_s));
    EXPECT_EQ(fittedFileName(QString(255, u'a')), QString(255, u'a'));
    EXPECT_EQ(fittedFileName(u""_s, u".x"_s), u".x"_s);
}

TEST(FileName, ShortensTheStemAndKeepsTheEnding)
{
    EXPECT_EQ(fittedFileName(QString(251, u'a'), u".flac"_s), QString(QString(250, u'a') + u".flac"_s));
    EXPECT_EQ(fittedFileName(QString(120, u'語'), u".flac"_s), QString(QString(83, u'語') + u".flac"_s));
    EXPECT_EQ(fittedFileName(u"abc"_s, QString(255, u'x')), QString(255, u'x'));
}

TEST(FileName, NeverCutsThroughACharacter)
{
    const QString family = u"👨‍👩‍👧"_s;
    ASSERT_EQ(byteCount(family), 18);
    EXPECT_EQ(fittedFileName(family.repeated(20)), family.repeated(14));
    EXPECT_EQ(fittedFileName(u"e\u0301"_s.repeated(100)), u"e\u0301"_s.repeated(85));
}

TEST(FileName, FitsAndWastesNoRoomWhateverTheText)
{
    const QStringList alphabet = {u"a"_s, u"ä"_s, u"語"_s, u"🎵"_s, u"e\u0301"_s, u"👨‍👩‍👧"_s,
                                  u" "_s, u"."_s};
    std::mt19937 random(1);
    for (int round = 0; round < 500; ++round) {
        QString stem;
        for (auto left = random() % 300; left > 0; --left)
            stem += alphabet[static_cast<qsizetype>(random() % 8)];
        const QString ending = round % 2 == 0 ? u".flac"_s : QString();

        const QString name = fittedFileName(stem, ending);
        ASSERT_TRUE(name.endsWith(ending));
        const QString kept = name.chopped(ending.size());
        const qsizetype count = characterCount(kept);
        EXPECT_EQ(kept, firstCharacters(stem, count));
        EXPECT_LE(byteCount(name), 255);
        const QString longer = firstCharacters(stem, count + 1);
        EXPECT_TRUE(longer == kept || byteCount(QString(longer + ending)) > 255);
    }
}

} // namespace tonearm
