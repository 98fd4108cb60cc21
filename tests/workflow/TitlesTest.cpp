// SPDX-License-Identifier: GPL-3.0-or-later
// Titles in every script and with every forbidden character, from the source to tags and file names.
#include "helpers/Contents.h"
#include "helpers/ModelFixture.h"
#include "helpers/Printing.h"
#include "helpers/ScriptedTools.h"
#include "helpers/Sources.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tonearm {

using namespace Qt::StringLiterals;
using test::ChapterMark;
using test::ModelFixture;
using test::ScriptedTools;

namespace {

struct TitleCase
{
    QString title;
    /// The file's name between number and extension.
    QString name;
};

const QList<TitleCase> cases = {
    {u"Ünïcödé é"_s, u"Ünïcödé-é"_s},
    {u"日本語の題名"_s, u"日本語の題名"_s},
    {u"Русский текст"_s, u"Русский-текст"_s},
    {u"نص عربي"_s, u"نص-عربي"_s},
    {u"שיר בעברית"_s, u"שיר-בעברית"_s},
    {u"हिन्दी गीत"_s, u"हिन्दी-गीत"_s},
    {u"한국어 노래"_s, u"한국어-노래"_s},
    {u"Ελληνικά"_s, u"Ελληνικά"_s},
    {u"ภาษาไทย"_s, u"ภาษาไทย"_s},
    {u"👩‍👩‍👧 family 🎵"_s, u"👩‍👩‍👧-family-🎵"_s},
    {u"a.`'’‘ʼ´\"“”b"_s, u"ab"_s},
    {u"a b\\c/d:e;f^g%h$i#j!k~l,m?n<o>p|q*r"_s, u"a-b-c-d-e-f-g-h-i-j-k-l-m-n-o-p-q-r"_s},
    {u"a=b [c] (d) {e} & + @ _"_s, u"a=b-[c]-(d)-{e}-&-+-@-_"_s},
    {u"-y --help"_s, u"y-help"_s},
    {u"%03d %n"_s, u"03d-n"_s},
    {u"..."_s, u"Track-16"_s},
    {u"?*|"_s, u"Track-17"_s},
    {u"tab\there"_s, u"tab\there"_s},
    {u"日"_s.repeated(150), u"日"_s.repeated(82)},
    {u"x"_s.repeated(150), u"x"_s.repeated(120)},
};

QString filename(qsizetype index)
{
    return u"%1-%2.flac"_s.arg(QString::number(index + 1).rightJustified(2, u'0'), cases[index].name);
}

// One piece of a source for each title.
QList<ChapterMark> chaptersOf(double length)
{
    QList<ChapterMark> result;
    for (const TitleCase &each : cases) {
        const double start = length * double(result.size());
        result.append({start, start + length, each.title});
    }
    return result;
}

} // namespace

TEST(Titles, ArriveFromTheSourceAsTheyStandThere)
{
    constexpr double length = 0.05;
    const QString source = test::sharedSource(
        u"titles"_s,
        {.sampleRate = 8000, .channelLayout = u"mono"_s, .duration = 1, .chapters = chaptersOf(length)});
    ModelFixture fixture;
    fixture.loadFile(source);
    QStringList titles;
    QStringList expected;
    for (const ChapterInfo &chapter : fixture->chapters.value())
        titles.append(chapter.originalTitle);
    for (const TitleCase &each : cases)
        expected.append(each.title);
    EXPECT_EQ(titles, expected);
}

TEST(Titles, NameTheFilesAndFillTheTags)
{
    constexpr double length = 0.05;
    ScriptedTools tools(chaptersOf(length));
    tools.setEncoding("exec " + ScriptedTools::realEncoding());
    ModelFixture fixture({.tools = tools.location()});
    fixture.prepareJob(test::plainSource());
    fixture.runJob();
    EXPECT_EQ(fixture->encodedFiles.value().size(), cases.size()) << fixture->statusText().toStdString();
    for (qsizetype index = 0; index < cases.size(); ++index) {
        const QString output = fixture.outputPath(filename(index));
        EXPECT_THAT(test::flacTags(output), testing::Contains(u"title="_s + cases[index].title));
    }
}

TEST(Titles, OfSeveralLinesGiveANameOfOne)
{
    ScriptedTools tools({{0, 0.1, u" \n first\r\nsecond\u2028third \n"_s}});
    tools.setEncoding("exec " + ScriptedTools::realEncoding());
    ModelFixture fixture({.tools = tools.location()});
    fixture.prepareJob(test::plainSource());
    fixture.runJob();
    const QByteArray tag =
        test::outputOf(u"metaflac"_s, {u"--no-utf8-convert"_s, u"--show-tag=title"_s,
                                       fixture.outputPath(u"01-first-second-third.flac"_s)});
    EXPECT_EQ(QString::fromUtf8(tag), u"title=first\r\nsecond\u2028third\n"_s);
}

TEST(Titles, OfOneNameDontOverwriteEachOther)
{
    ScriptedTools tools({{0, 1, u"A/B"_s}, {1, 2, u"A:B"_s}, {2, 3, u"A B"_s}});
    ModelFixture fixture({.tools = tools.location()});
    fixture.prepareJob(tools.source());
    fixture.runJob();
    EXPECT_EQ(test::namesIn(fixture.outputPath()).first(3),
              (QStringList{u"01-A-B.flac"_s, u"02-A-B.flac"_s, u"03-A-B.flac"_s}));
}

} // namespace tonearm
