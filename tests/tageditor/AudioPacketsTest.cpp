// SPDX-License-Identifier: GPL-3.0-or-later
#include "tageditor/AudioPackets.h"

#include <gtest/gtest.h>

namespace tonearm {

namespace {

constexpr auto twoStreams = "0\n10\nCRC32:a\n1\n20\nCRC32:b\n0\n11\nCRC32:c\n";

} // namespace

TEST(AudioPackets, AreCountedForEachStream)
{
    EXPECT_EQ(AudioPackets::decoded(twoStreams).counts(), (QList<qsizetype>{2, 1}));
    EXPECT_EQ(AudioPackets::decoded("").counts(), QList<qsizetype>());
}

TEST(AudioPackets, AreTheSameUnderOtherNumbersAndMixedOtherwise)
{
    EXPECT_EQ(AudioPackets::decoded(twoStreams),
              AudioPackets::decoded("3\n20\nCRC32:b\n1\n10\nCRC32:a\n1\n11\nCRC32:c\n"));
}

TEST(AudioPackets, DifferByNumberSizeAndContent)
{
    const AudioPackets packets = AudioPackets::decoded(twoStreams);
    EXPECT_NE(packets, AudioPackets::decoded("0\n10\nCRC32:a\n1\n20\nCRC32:b\n"));
    EXPECT_NE(packets, AudioPackets::decoded("0\n10\nCRC32:a\n1\n20\nCRC32:b\n0\n12\nCRC32:c\n"));
    EXPECT_NE(packets, AudioPackets::decoded("0\n10\nCRC32:a\n1\n20\nCRC32:b\n0\n11\nCRC32:d\n"));
    EXPECT_NE(packets, AudioPackets::decoded("0\n11\nCRC32:c\n1\n20\nCRC32:b\n0\n10\nCRC32:a\n"));
}

} // namespace tonearm
