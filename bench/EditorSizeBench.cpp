// SPDX-License-Identifier: GPL-3.0-or-later
// What the tag editor, its window included, takes for a folder of so many songs, given as the argument: time,
// memory, and the longest that the main thread is kept from anything else.
#include "EditorSongs.h"
#include "Turns.h"
#include "app/screens/editortable/EditorRowList.h"
#include "app/screens/editorwindow/MetadataEditorWindow.h"
#include "helpers/EditorFixture.h"
#include "helpers/Heartbeat.h"
#include "helpers/Widgets.h"
#include "helpers/WindowUser.h"
#include "tageditor/ArtworkViewer.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QFile>
#include <QLineEdit>

#include <cstdio>
#include <functional>
#include <stdexcept>

using namespace tonearm;
using namespace tonearm::bench;
using namespace tonearm::test;
using namespace Qt::StringLiterals;
using Key = RowComparator::Key;

namespace {

constexpr int usualCount = 1000;
constexpr double microsecondsPerMillisecond = 1000;

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
        m_heart.run(1, [](int) {});
        m_heart.reset();
        resetPeak();
        const double before = peakMegabytes();
        load();
        selectAndSort();
        m_model.setSelection(urls([](int) { return true; }));
        edit("typing, all selected");
        m_model.setSelection(urls([](int row) { return row % 2 == 0; }));
        edit("typing, half selected");
        saveOne();
        std::printf("\nmemory: %.1f MB before, %.1f MB at most\n", before, peakMegabytes());
    }

private:
    void load()
    {
        wait(
            "placeholders", [&] { m_model.openFolder(m_fixture.songs().url()); },
            [&] { return m_model.files.value().size() == m_count; });
        wait(
            "all rows read", [] {}, [&] { return !m_model.isLoading.value(); });
        expectSelected(m_count);
    }

    void expectSelected(qsizetype count) const
    {
        if (m_model.selectedFiles().size() != count)
            throw std::runtime_error("not as many songs are selected as should be");
    }

    void selectAndSort()
    {
        constexpr int steps = 100;
        run("scrolling", steps, [&](int) { turnWheel(*m_list.viewport(), 3); });
        m_list.setFocus();
        run("selecting one", 1, [](int) { press(Qt::Key_End); });
        expectSelected(1);
        run("selecting all", 1, [](int) { press(Qt::Key_A, Qt::ControlModifier); });
        expectSelected(m_count);
        // Each turns the rows round.
        sort("sorting by title", {{.key = Key::title, .order = Qt::DescendingOrder}});
        sort("sorting by title again", {{.key = Key::title}});
        sort("sorting by name", {{.key = Key::fileName, .order = Qt::DescendingOrder}});
        sort("sorting as usual", defaultRowOrder());
    }

    void sort(const char *what, const QList<RowComparator> &order)
    {
        run(what, 1, [&](int) { m_model.setSortOrder(order); });
    }

    void edit(const char *what)
    {
        constexpr int letters = 10;
        m_window.box(u"Album Title"_s).setFocus();
        m_heart.run(1, [](int) {});
        m_heart.reset();
        run(what, letters, [](int) { type(u"x"_s); });
        run("taking it back", letters, [](int) { press(Qt::Key_Backspace); });
    }

    // All songs are read again at the end of a save, however few were written.
    void saveOne()
    {
        run("dropping all edits", 1, [&](int) { m_model.changes = TagChangeSet(); });
        m_model.setSelection({m_model.files.value().last().url});
        m_model.setValue(u"Another"_s, EditableTagField::album);
        wait(
            "saving one", [&] { m_model.save(); },
            [&] { return !m_model.isSaving.value() && m_model.completionMessage.value(); });
        run("closing the folder", 1, [&](int) { m_model.reset(); });
    }

    QSet<QUrl> urls(const std::function<bool(int)> &isWanted) const
    {
        const QList<EditableAudioFile> &files = m_model.files.value();
        QSet<QUrl> wanted;
        for (int row = 0; row < files.size(); ++row)
            if (isWanted(row))
                wanted.insert(files[row].url);
        return wanted;
    }

    void run(const char *what, int count, const std::function<void(int)> &step)
    {
        print(what, timeOf([&] { m_heart.run(count, step); }) / count);
    }

    void wait(const char *what, const std::function<void()> &begin, const std::function<bool()> &isDone)
    {
        bool hasBegun = false;
        print(what, timeOf([&] {
                  QTimer::singleShot(0, [&] {
                      begin();
                      hasBegun = true;
                  });
                  m_heart.runUntil([&] { return hasBegun && isDone(); }, std::chrono::minutes(20));
                  m_heart.run(1, [](int) {});
              }));
    }

    void print(const char *what, Milliseconds time)
    {
        std::printf("%-24s %12.1f %14.1f %14.1f\n", what, time.count(),
                    double(m_heart.longest().elapsed.count()) / microsecondsPerMillisecond,
                    double(m_heart.longest().worked.count()) / microsecondsPerMillisecond);
        std::fflush(stdout);
        m_heart.reset();
    }

    const int m_count;
    EditorFixture m_fixture;
    MetadataEditorModel &m_model = m_fixture.model();
    ArtworkViewer m_viewer;
    MetadataEditorWindow m_widget{m_model, m_fixture.genres(), m_viewer};
    WindowUser m_window{m_widget};
    EditorRowList &m_list = *m_widget.findChild<EditorRowList *>();
    Heartbeat m_heart;
};

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    GTEST_FLAG_SET(throw_on_failure, true);
    const int count = argc > 1 ? QByteArray(argv[1]).toInt() : usualCount;
    std::printf("%d songs, milliseconds\n\n", count);
    std::printf("%-24s %12s %14s %14s\n", "", "time a step", "longest stall", "of it worked");
    Flows(count).measure();
    return 0;
}
