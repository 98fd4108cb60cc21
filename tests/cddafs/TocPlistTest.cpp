// SPDX-License-Identifier: GPL-3.0-or-later
#include "cddafs/TocPlist.h"

#include "disc/DiscTOC.h"

#include <gtest/gtest.h>

namespace tonearm {

TEST(TocPlist, ReadsAsTheTableOfContentsItWasMadeFrom)
{
    const DiscLayout layout = {{{1, 36003, {{2, 32, false}, {3, 20174, true}}}}};
    EXPECT_EQ(DiscTOC::parse(tocPlist(layout)), (DiscTOC{.firstTrack = 2,
                                                         .lastTrack = 3,
                                                         .leadoutFrame = 36153,
                                                         .trackStarts = {{2, 182}, {3, 20324}},
                                                         .sessionCount = 1}));
}

TEST(TocPlist, TellsEverySession)
{
    const LayoutSession audio = {1, 36003, {{1, 0, true}}};
    const DiscTOC toc = DiscTOC::parse(tocPlist({{audio, {2, 90000, {{2, 47403, false}}}}}));
    EXPECT_EQ(toc.sessionCount, 2);
    EXPECT_EQ(toc.trackStarts, (std::map<qint64, qint64>{{1, 150}}));
    EXPECT_EQ(toc.discID(), DiscTOC::parse(tocPlist({{audio}})).discID());
}

TEST(TocPlist, SaysWhichTracksAreData)
{
    EXPECT_TRUE(tocPlist({{{1, 36003, {{1, 0, false}}}}}).contains("<key>Data</key>\n\t\t\t\t\t<true/>"));
    EXPECT_TRUE(tocPlist({{{1, 36003, {{1, 0, true}}}}}).contains("<key>Data</key>\n\t\t\t\t\t<false/>"));
}

} // namespace tonearm
