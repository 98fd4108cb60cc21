// SPDX-License-Identifier: GPL-3.0-or-later
#include "cddafs/CueSheet.h"

#include "helpers/Printing.h"

#include <gtest/gtest.h>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

// "" for a sheet that can be read.
QString problemOf(const QByteArray &fileLines, const QString &binName = u"disc.bin"_s)
{
    const QByteArray sheet =
        "TITLE \"FILE\"\n" + fileLines + "  TRACK 01 AUDIO\n    TITLE \"My FILE x BINARY\"\n";
    return cueSheetProblem(sheet, binName).value_or(QString());
}

} // namespace

TEST(CueSheet, MayNameTheOneFileThatIsRead)
{
    EXPECT_EQ(problemOf("FILE \"disc.bin\" BINARY\n"), QString());
    EXPECT_EQ(problemOf("\tfile disc.bin binary\r\n"), QString());
    EXPECT_EQ(problemOf("FILE \"d\xC3\xA4sc 1.bin\" BINARY\n", u"däsc 1.bin"_s), QString());
}

TEST(CueSheet, MayNotNameAnotherFileOrSeveral)
{
    EXPECT_EQ(problemOf("FILE \"other.bin\" BINARY\n"), u"The image's FILE line has to name disc.bin."_s);
    EXPECT_EQ(problemOf("FILE \"disc.bin\" BINARY\nFILE \"disc2.bin\" BINARY\n"),
              u"Only images with one FILE line can be read."_s);
    EXPECT_EQ(problemOf({}), u"Only images with one FILE line can be read."_s);
}

TEST(CueSheet, MayNotNameAFileOfAnotherType)
{
    for (const char *type : {"WAVE", "MOTOROLA", "MP3", "AIFF"}) {
        EXPECT_EQ(problemOf(QByteArray("FILE \"disc.bin\" ") + type + "\n"),
                  u"Only images of the type BINARY can be read."_s);
    }
}

} // namespace tonearm
