// SPDX-License-Identifier: GPL-3.0-or-later
#include "cddafs/Volume.h"

#include "cddafs/TocPlist.h"

#include <gtest/gtest.h>

namespace tonearm {

using namespace Qt::StringLiterals;

TEST(Volume, HoldsTheTableOfContentsAndAFileForEachAudioTrack)
{
    const DiscLayout layout = {{{1, 300, {{1, 0, false}, {2, 100, true}, {3, 200, true}}}}};
    const QByteArray toc = tocPlist(layout);
    EXPECT_EQ(volumeFiles(layout, {{3, u"Café"_s}}),
              (QList<VolumeFile>{
                  {.name = ".TOC.plist", .size = toc.size(), .contents = toc},
                  {.name = "2 Audio Track.aiff", .size = 101 * 2352, .track = AudioTrack{2, 100, 100}},
                  {.name = "3 Caf\xC3\xA9.aiff", .size = 101 * 2352, .track = AudioTrack{3, 200, 100}}}));
}

} // namespace tonearm
