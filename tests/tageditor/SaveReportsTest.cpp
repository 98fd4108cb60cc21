// SPDX-License-Identifier: GPL-3.0-or-later
#include "tageditor/SaveReports.h"
#include "helpers/Printing.h"

#include <gtest/gtest.h>

#include <QMap>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

RefusedSave refused(const QString &name, const QStringList &tags)
{
    RefusedSave refusal;
    refusal.fileName = name;
    refusal.tags = tags;
    return refusal;
}

const QString &reassurance()
{
    static const QString text =
        u"Nothing that plays the file uses these — they're identifiers a tagger like MusicBrainz Picard uses to recognise the release again. Everything else, including the audio, is written exactly as it would be otherwise."_s;
    return text;
}

} // namespace

TEST(CompletionLine, TellsEveryCombination)
{
    const QMap<qsizetype, QString> saved = {{0, u"No files were saved"_s},
                                            {1, u"Saved 1 file"_s},
                                            {2, u"Saved 2 files"_s},
                                            {30, u"Saved 30 files"_s}};
    const QMap<qsizetype, QString> heldBack = {
        {0, u""_s}, {1, u" · 1 held back"_s}, {4, u" · 4 held back"_s}};
    const QMap<qsizetype, QString> dropped = {
        {0, u""_s}, {1, u" · dropped unwritable tags from 1"_s}, {5, u" · dropped unwritable tags from 5"_s}};
    const QMap<qsizetype, QString> failed = {
        {0, u""_s}, {1, u" · 1 couldn't be written"_s}, {3, u" · 3 couldn't be written"_s}};
    const QMap<bool, QString> cancelled = {{false, u"."_s}, {true, u" · saving was cancelled."_s}};
    int count = 0;
    for (auto s = saved.constBegin(); s != saved.constEnd(); ++s)
        for (auto h = heldBack.constBegin(); h != heldBack.constEnd(); ++h)
            for (auto d = dropped.constBegin(); d != dropped.constEnd(); ++d)
                for (auto f = failed.constBegin(); f != failed.constEnd(); ++f)
                    for (auto c = cancelled.constBegin(); c != cancelled.constEnd(); ++c, ++count)
                        EXPECT_EQ(completionLine({.saved = s.key(),
                                                  .failed = f.key(),
                                                  .heldBack = h.key(),
                                                  .dropped = d.key(),
                                                  .wasCancelled = c.key()}),
                                  QString(s.value() + h.value() + d.value() + f.value() + c.value()));
    EXPECT_EQ(count, 4 * 3 * 3 * 3 * 2);
}

TEST(RefusalMessage, IsOfOneFileAndOneTag)
{
    EXPECT_EQ(
        refusalMessage({refused(u"a.m4a"_s, {u"replaygain"_s})}),
        QString(
            u"\"a.m4a\" carries tags this app can read but can't write back. Saving would drop this tag:\n\nreplaygain\n\n"_s +
            reassurance()));
}

TEST(RefusalMessage, IsOfSeveralFilesWithEachTagOnce)
{
    EXPECT_EQ(
        refusalMessage({refused(u"a.m4a"_s, {u"c"_s, u"a"_s}), refused(u"b.m4a"_s, {u"B"_s, u"c"_s})}),
        QString(
            u"2 files carry tags this app can read but can't write back. Saving would drop these tags:\n\nB\na\nc\n\n"_s +
            reassurance()));
}

TEST(RefusalMessage, IsOfSeveralFilesWithTheSameTag)
{
    EXPECT_TRUE(refusalMessage({refused(u"a"_s, {u"x"_s}), refused(u"b"_s, {u"x"_s})})
                    .contains(u"drop this tag:\n\nx\n\n"_s));
}

TEST(DroppedTagSummary, IsAbsentWithoutReports)
{
    EXPECT_EQ(droppedTagSummary({}), std::nullopt);
}

TEST(DroppedTagSummary, CountsEachTagOnce)
{
    EXPECT_EQ(droppedTagSummary({refused(u"a"_s, {u"x"_s})}),
              u"1 tag dropped from 1 file that couldn't keep them."_s);
    EXPECT_EQ(droppedTagSummary({refused(u"a"_s, {u"x"_s, u"y"_s}), refused(u"b"_s, {u"y"_s, u"z"_s})}),
              u"3 tags dropped from 2 files that couldn't keep them."_s);
    EXPECT_EQ(droppedTagSummary({refused(u"a"_s, {u"x"_s}), refused(u"b"_s, {u"x"_s})}),
              u"1 tag dropped from 2 files that couldn't keep them."_s);
}

} // namespace tonearm
