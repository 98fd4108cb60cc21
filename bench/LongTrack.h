// SPDX-License-Identifier: GPL-3.0-or-later
// What the benchmarks that read a disc's track from end to end have in common.
#pragma once

#include "helpers/DiscImage.h"

#include <QTemporaryDir>

#include <cstdio>

namespace tonearm::bench {

constexpr int oneSector = 2352;
constexpr int sixteenSectors = 16 * oneSector;

/// The image of a disc with one track, in a folder that goes with this object.
class LongTrack
{
public:
    explicit LongTrack(int minutes)
        : sectors(minutes * 60 * 75)
        , image(folder.path(), {.tracks = {{.sectors = sectors}}})
    {
    }

    const int sectors;
    const QTemporaryDir folder;
    const test::DiscImage image;
};

/// A line of a table of two ways to read, by the bytes of a reading.
inline void printRow(int size, double bare, double own, double ratio)
{
    std::printf("%14d %18.0f %14.0f %8.2f\n", size, bare, own, ratio);
    std::fflush(stdout);
}

} // namespace tonearm::bench
