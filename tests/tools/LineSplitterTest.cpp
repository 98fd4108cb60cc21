// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/LineSplitter.h"

#include "helpers/Printing.h"
#include "support/Text.h"

#include <gtest/gtest.h>

#include <QStringList>

#include <random>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

QStringList linesOf(const QList<QByteArray> &chunks)
{
    QStringList lines;
    LineSplitter splitter([&](const QString &line) { lines << line; });
    for (const QByteArray &chunk : chunks)
        splitter.add(chunk);
    splitter.finish();
    return lines;
}

// The same lines by another way: all bytes at once, both line ends made one.
QStringList expectedLines(QByteArray bytes)
{
    QStringList lines;
    for (const QByteArray &line : bytes.replace('\r', '\n').split('\n')) {
        const std::optional<QString> text = decodedUtf8(line);
        if (text && !text->isEmpty())
            lines << *text;
    }
    return lines;
}

// The bytes cut after each place whose bit is set in `cuts`.
QList<QByteArray> cutUp(const QByteArray &bytes, unsigned cuts)
{
    QList<QByteArray> chunks{QByteArray()};
    for (qsizetype index = 0; index < bytes.size(); ++index) {
        chunks.last().append(bytes[index]);
        if ((cuts >> index & 1U) != 0)
            chunks.append(QByteArray());
    }
    return chunks;
}

} // namespace

TEST(LineSplitter, EndsALineAtACarriageReturnAndAtALineFeed)
{
    EXPECT_EQ(linesOf({"one\rtwo\nthree\n"}), (QStringList{u"one"_s, u"two"_s, u"three"_s}));
}

TEST(LineSplitter, DeliversWhatIsLeftOnlyAtTheEnd)
{
    QStringList lines;
    LineSplitter splitter([&](const QString &line) { lines << line; });
    splitter.add("10%\r20%\r30%");
    EXPECT_EQ(lines, (QStringList{u"10%"_s, u"20%"_s}));
    splitter.finish();
    EXPECT_EQ(lines, (QStringList{u"10%"_s, u"20%"_s, u"30%"_s}));
}

TEST(LineSplitter, DeliversALineAsSoonAsItsEndIsThere)
{
    QStringList lines;
    LineSplitter splitter([&](const QString &line) { lines << line; });
    splitter.add("al");
    splitter.add("most");
    EXPECT_EQ(lines, QStringList());
    splitter.add("\r");
    EXPECT_EQ(lines, QStringList{u"almost"_s});
}

TEST(LineSplitter, LeavesEmptyLinesOut)
{
    EXPECT_EQ(linesOf({"\r\n\n\rone\r\ntwo\r\n\r\n"}), (QStringList{u"one"_s, u"two"_s}));
}

TEST(LineSplitter, KeepsLinesOfBlanks)
{
    EXPECT_EQ(linesOf({" \n\t\n"}), (QStringList{u" "_s, u"\t"_s}));
}

TEST(LineSplitter, DropsLinesThatAreNotUtf8)
{
    EXPECT_EQ(linesOf({"good\nbad \xff\nagain\n\xc3"}), (QStringList{u"good"_s, u"again"_s}));
}

TEST(LineSplitter, PutsACharacterTogetherThatTwoChunksShare)
{
    EXPECT_EQ(linesOf({"caf\xc3", "\xa9\n"}), QStringList{u"café"_s});
}

TEST(LineSplitter, HasNothingToSayOfAnEmptyStream)
{
    EXPECT_EQ(linesOf({}), QStringList());
    EXPECT_EQ(linesOf({""}), QStringList());
}

TEST(LineSplitter, DoesNothingWithoutACallback)
{
    LineSplitter splitter({});
    splitter.add("one\ntwo");
    EXPECT_NO_THROW(splitter.finish());
}

TEST(LineSplitter, GivesTheSameLinesForEveryWayToCutTheStream)
{
    const QByteArray bytes = "a\r\n\xc3\xa9\n\xff\r\rbc";
    const unsigned ways = 1U << static_cast<unsigned>(bytes.size());
    for (unsigned cuts = 0; cuts < ways; ++cuts)
        ASSERT_EQ(linesOf(cutUp(bytes, cuts)), (QStringList{u"a"_s, u"é"_s, u"bc"_s})) << "cuts " << cuts;
}

TEST(LineSplitter, FindsTheLinesOfRandomStreamsCutAtRandom)
{
    std::mt19937 random(20240501);
    const QByteArray alphabet = "ab \r\n\xc3\xa9\xff\xe2\x82\xac";
    std::uniform_int_distribution<qsizetype> letter(0, alphabet.size() - 1);
    for (int stream = 0; stream < 2000; ++stream) {
        QByteArray bytes;
        for (int index = 0; index < 24; ++index)
            bytes.append(alphabet[letter(random)]);
        const auto cuts = static_cast<unsigned>(random());
        ASSERT_EQ(linesOf(cutUp(bytes, cuts)), expectedLines(bytes)) << bytes.toHex().constData();
    }
}

} // namespace tonearm
