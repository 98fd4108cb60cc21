// SPDX-License-Identifier: GPL-3.0-or-later
// Opening a folder of a thousand songs in the tag editor's model, beside four ffprobes at a time.
#include "EditorSongs.h"
#include "Shell.h"
#include "Turns.h"
#include "Waiting.h"
#include "helpers/EditorFixture.h"

#include <gtest/gtest.h>

#include <QGuiApplication>

#include <cstdio>
#include <stdexcept>
#include <vector>

using namespace tonearm;
using namespace tonearm::bench;
using namespace tonearm::test;
using namespace Qt::StringLiterals;

namespace {

constexpr int turns = 5;
constexpr int songCount = 1000;

QString probingLine(const EditorFixture &fixture)
{
    const QString ffprobe = shippedTools().toolURL(u"ffprobe"_s).toLocalFile();
    return u"find %1 -name '*.flac' -print0 | xargs -0 -P 4 -n 1 %2 -v error -print_format json -show_format "
           "-show_streams >/dev/null"_s.arg(quoted(fixture.songs().path()), quoted(ffprobe));
}

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    GTEST_FLAG_SET(throw_on_failure, true);
    EditorFixture fixture;
    makeSongs(fixture, songCount);
    MetadataEditorModel &model = fixture.model();
    const QString line = probingLine(fixture);
    std::vector<Milliseconds> firstRows;
    const auto open = [&] {
        firstRows.push_back(timeOf([&] {
            model.openFolder(fixture.songs().url());
            waitUntil([&] { return model.loadProgress.value() > 0; });
        }));
        waitUntil([&] { return !model.isLoading.value(); });
        if (model.selection.value().size() != songCount)
            throw std::runtime_error("a song couldn't be read");
    };
    const Comparison times = inTurns(
        turns, [&] { runShell(line); }, open);
    std::printf("%d songs, milliseconds, median of %d turns\n\n", songCount, turns);
    std::printf("%10s %14s %8s %16s\n", "ffprobe", "opened folder", "ratio", "first row read");
    std::printf("%10.0f %14.0f %8.2f %16.1f\n", times.bare.count(), times.own.count(), times.ratio(),
                median(firstRows).count());
    fixture.dropModel();
    return 0;
}
