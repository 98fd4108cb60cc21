// SPDX-License-Identifier: GPL-3.0-or-later
#include "disc/ParanoiaOutput.h"

#include "helpers/Printing.h"

#include <gtest/gtest.h>

#include <thread>

namespace tonearm {

using namespace Qt::StringLiterals;

TEST(ParanoiaOutput, HasNoComplaintsInQuietLines)
{
    EXPECT_EQ(complaintsIn({}), std::nullopt);
    EXPECT_EQ(complaintsIn({u"Ripping from sector 0"_s, u"Done."_s}), std::nullopt);
}

TEST(ParanoiaOutput, KnowsEverySignOfTrouble)
{
    for (const QString &line :
         {u"405: Option not supported by drive"_s, u"Unable to open disc."_s, u"Read error: 12"_s,
          u"skipping"_s, u"Seek failed."_s, u"No such file or directory"_s, u"Permission denied"_s})
        EXPECT_EQ(complaintsIn({u"Ripping"_s, line, u"Done."_s}), line);
}

TEST(ParanoiaOutput, KnowsTroubleInAnyCaseOfLetters)
{
    EXPECT_EQ(complaintsIn({u"Skipped 2 sectors"_s}), u"Skipped 2 sectors"_s);
    EXPECT_EQ(complaintsIn({u"SKIPPED 2 SECTORS"_s}), u"SKIPPED 2 SECTORS"_s);
    EXPECT_EQ(complaintsIn({u"OPTION not Supported by DRIVE"_s}), u"OPTION not Supported by DRIVE"_s);
}

TEST(ParanoiaOutput, TellsTheLastThreeComplaintsInOrder)
{
    EXPECT_EQ(complaintsIn({u"error 1"_s, u"error 2"_s, u"fine"_s, u"error 3"_s, u"error 4"_s, u"done"_s}),
              u"error 2 error 3 error 4"_s);
    EXPECT_EQ(complaintsIn({u"error 1"_s, u"fine"_s, u"error 2"_s}), u"error 1 error 2"_s);
}

TEST(ParanoiaOutput, CollectsLinesFromSeveralThreads)
{
    ParanoiaOutput output;
    EXPECT_EQ(output.complaints(), std::nullopt);
    const auto complain = [&output] {
        for (int line = 0; line < 500; ++line)
            output.append(u"error"_s);
    };
    {
        const std::jthread one(complain);
        const std::jthread two(complain);
        for (int look = 0; look < 100; ++look)
            output.complaints();
    }
    EXPECT_EQ(output.complaints(), u"error error error"_s);
}

} // namespace tonearm
