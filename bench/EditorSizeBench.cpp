// SPDX-License-Identifier: GPL-3.0-or-later
// What the tag editor's model takes for a folder of so many songs, given as the argument: time, memory, and
// the longest that the main thread is kept from anything else.
#include "EditorSongs.h"
#include "Turns.h"
#include "helpers/EditorFixture.h"
#include "helpers/Heartbeat.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QGuiApplication>

#include <cstdio>
#include <functional>
#include <stdexcept>

using namespace tonearm;
using namespace tonearm::bench;
using namespace tonearm::test;
using namespace Qt::StringLiterals;

namespace {

constexpr int usualCount = 1000;

// The most memory of this process that has been in RAM since the last reset, in megabytes.
double peakMegabytes()
{
    QFile status(u"/proc/self/status"_s);
    if (!status.open(QIODevice::ReadOnly))
        throw std::runtime_error("this process can't be looked at");
    const QByteArray text = status.readAll();
    const QByteArray line = text.sliced(text.indexOf("VmHWM:")).split('\n').first();
    constexpr double kilobytesPerMegabyte = 1000;
    return line.simplified().split(' ').value(1).toDouble() / kilobytesPerMegabyte;
}

void resetPeak()
{
    QFile references(u"/proc/self/clear_refs"_s);
    if (!references.open(QIODevice::WriteOnly) || references.write("5") != 1)
        throw std::runtime_error("the peak of the memory can't be reset");
}

class Flows
{
public:
    explicit Flows(int count)
        : m_count(count)
    {
        makeSongs(m_fixture, count);
    }

    ~Flows() { m_fixture.dropModel(); }

    void measure()
    {
        resetPeak();
        const double before = peakMegabytes();
        print(
            "placeholders", [&] { m_model.openFolder(m_fixture.songs().url()); },
            [&] { return m_model.files.value().size() == m_count; });
        print(
            "all rows read", [] {}, [&] { return !m_model.isLoading.value(); });
        if (m_model.selection.value().size() != m_count)
            throw std::runtime_error("a song couldn't be read");
        printSteps();
        std::printf("\nmemory: %.1f MB before, %.1f MB at most\n", before, peakMegabytes());
    }

private:
    void printSteps()
    {
        const auto always = [] { return true; };
        QSet<QUrl> all = m_model.selection.value();
        print(
            "selecting none", [&] { m_model.setSelection({}); }, always);
        print(
            "selecting all", [&] { m_model.setSelection(all); }, always);
        print(
            "sorting by title", [&] { m_model.setSortOrder({{.key = RowComparator::Key::title}}); }, always);
        print(
            "editing all", [&] { m_model.setValue(u"Another"_s, EditableTagField::album); }, always);
        print(
            "looking for edits", [&] { m_hasEdits = m_model.hasPendingChanges(); }, always);
        print(
            "reading the fields",
            [&] {
                for (const EditableTagField field : allEditableTagFields)
                    m_common.append(m_model.commonValue(field));
            },
            always);
        print(
            "warning of edits", [&] { m_warning = m_model.overwriteWarning(); }, always);
        print(
            "suggesting genres", [&] { m_genres = m_model.genreSuggestions(); }, always);
        print(
            "artwork's state", [&] { m_artwork = m_model.artworkState(); }, always);
    }

    void print(const char *what, const std::function<void()> &begin, const std::function<bool()> &isDone)
    {
        Heartbeat heart;
        bool hasBegun = false;
        const Milliseconds time = timeOf([&] {
            QTimer::singleShot(0, [&] {
                begin();
                hasBegun = true;
            });
            heart.runUntil([&] { return hasBegun && isDone(); }, std::chrono::minutes(10));
        });
        constexpr double microsecondsPerMillisecond = 1000;
        std::printf("%-20s %12.1f %14.1f %14.1f\n", what, time.count(),
                    double(heart.longest().elapsed.count()) / microsecondsPerMillisecond,
                    double(heart.longest().worked.count()) / microsecondsPerMillisecond);
        std::fflush(stdout);
    }

    const int m_count;
    EditorFixture m_fixture;
    MetadataEditorModel &m_model = m_fixture.model();
    // What has been asked for, so that it is worked out.
    bool m_hasEdits = false;
    QList<CommonValue> m_common;
    std::optional<QString> m_warning;
    QStringList m_genres;
    EditorArtworkState m_artwork;
};

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    GTEST_FLAG_SET(throw_on_failure, true);
    const int count = argc > 1 ? QByteArray(argv[1]).toInt() : usualCount;
    std::printf("%d songs, milliseconds\n\n", count);
    std::printf("%-20s %12s %14s %14s\n", "", "time", "longest stall", "of it worked");
    Flows(count).measure();
    return 0;
}
