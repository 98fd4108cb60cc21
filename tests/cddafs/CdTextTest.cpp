// SPDX-License-Identifier: GPL-3.0-or-later
#include "cddafs/CdText.h"

#include "helpers/Printing.h"

#include <gtest/gtest.h>

namespace tonearm {

using namespace Qt::StringLiterals;

TEST(CdText, IsAbsentWithoutATitle)
{
    EXPECT_EQ(titleText(nullptr), QString());
    EXPECT_EQ(discTitles(nullptr), DiscTitles());
}

TEST(CdText, KeepsWhatLibcdioDecodedRightly)
{
    EXPECT_EQ(titleText("Plain"), u"Plain"_s);
    EXPECT_EQ(titleText("Caf\xC3\xA9"), u"Café"_s);
    EXPECT_EQ(titleText("\xE6\x97\xA5\xE6\x9C\xAC"), u"日本"_s);
}

TEST(CdText, UndoesThatUtf8WasTakenForLatin1)
{
    EXPECT_EQ(titleText("Caf\xC3\x83\xC2\xA9"), u"Café"_s);
    EXPECT_EQ(titleText("\xC3\xA6\xC2\x97\xC2\xA5"), u"日"_s);
}

TEST(CdText, MakesWhatItCanOfBytesThatAreNoText)
{
    EXPECT_EQ(titleText("Caf\xE9"), u"Café"_s);
    EXPECT_EQ(titleText("\xFF\xFE"), u"ÿþ"_s);
}

} // namespace tonearm
